/* A test of a till's devices, as an application has one in its own pipeline: weighs, prints a
 * receipt and a label, opens the drawer, and looks at every result code. The paper runs out in the
 * middle of the receipt; the till waits for new paper, cuts off what was printed, and prints the
 * receipt again.
 *
 * It runs against zelkad-sim with scenario.json, which puts the goods on the scale and the paper
 * into the printer; ./pipeline starts both. Exit code: 0 all as expected, 1 not.
 */
#include <exports.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#ifdef _WIN32
#include <windows.h>
static void pause_ms(unsigned ms) { Sleep(ms); }
#else
#include <poll.h>
static void pause_ms(unsigned ms) { poll(NULL, 0, (int)ms); }
#endif

enum { POLL_MS = 20, POLLS = 1500 };              /* half a minute */
enum { TICKET_PRINTER = 1 };                      /* printer types */
enum { LABEL_JOB = 2, RECEIPT_JOB_WITH_CUT = 8 }; /* job types */
enum { FONT = 24, PAPER_MM = 72 };
enum { CENTS_PER_KG = 1890 };

/* Results are numbers throughout: verdicts, result codes, grams. */
static void expect(const char* what, int actual, int expected) {
  printf("%s: %s is %d", actual == expected ? "ok" : "FAILED", what, actual);
  if (actual != expected) printf(" instead of %d; last result code %d", expected, getLastErrCode());
  printf("\n");
  fflush(stdout);
  if (actual != expected) exit(1);
}

/* Queuing sends nothing; it is told only when it fails. */
static void queued(int verdict) {
  if (verdict != TOLVEX_OK) expect("queuing a line", verdict, TOLVEX_OK);
}

/* The net weight in grams, or -1 while it is not stable. */
static int stable_grams(void) {
  tolvex_weight weight;
  char net[sizeof(weight.net) + 1] = {0};
  memset(&weight, 0, sizeof(weight));
  if (read_standard((char*)&weight) != TOLVEX_OK || weight.mark != 'P') return -1;
  if ((weight.status & TOLVEX_WEIGHT_STABLE) == 0) return -1;
  memcpy(net, weight.net, sizeof(weight.net));
  return (int)(atof(net) * 1000 + 0.5);
}

static int weigh(void) {
  int polls;
  for (polls = 0; polls < POLLS; ++polls) {
    const int grams = stable_grams();
    if (grams > 0) return grams;
    pause_ms(POLL_MS);
  }
  return 0;
}

/* The printer's state once it is no longer `state`. */
static int wait_while(int state) {
  int polls;
  int now = state;
  for (polls = 0; polls < POLLS && now == state; ++polls) {
    now = GetPrinterStatus(TICKET_PRINTER);
    if (now == state) pause_ms(POLL_MS);
  }
  return now;
}

static void line(const char* text) { queued(PrintTextByPaperWidth(text, FONT, PAPER_MM)); }

static int print_receipt(int grams) {
  char text[64];
  const int cents = (grams * CENTS_PER_KG + 500) / 1000;
  line("RECEIPT 0042");
  line("------------------------------------------------");
  snprintf(text, sizeof(text), "Mountain cheese %d.%03d kg %20d.%02d", grams / 1000, grams % 1000,
           cents / 100, cents % 100);
  line(text);
  line("------------------------------------------------");
  snprintf(text, sizeof(text), "TOTAL %39d.%02d", cents / 100, cents % 100);
  line(text);
  line("Thank you!");
  return BeginPrint(RECEIPT_JOB_WITH_CUT);
}

static int print_label(int grams) {
  char text[64];
  queued(PrintText("Mountain cheese", 36));
  snprintf(text, sizeof(text), "%d.%03d kg", grams / 1000, grams % 1000);
  queued(PrintText(text, 28));
  return BeginPrint(LABEL_JOB);
}

int main(void) {
  int grams;
  expect("the connection", checkConnection() != 0, 1);
  grams = weigh();
  expect("the weight", grams, 356);

  expect("printing until the paper ends", print_receipt(grams), TOLVEX_FAILED);
  expect("the printer's state", GetPrinterStatus(TICKET_PRINTER), TOLVEX_RESULT_OUT_OF_PAPER);
  expect("the printer's state with new paper", wait_while(TOLVEX_RESULT_OUT_OF_PAPER), 0);
  expect("cutting off what was printed of it", cutPaperById(TICKET_PRINTER), 0);
  expect("printing the receipt again", print_receipt(grams), TOLVEX_OK);

  expect("opening the drawer", OpenCashDrawerEx(), TOLVEX_OK);
  expect("printing the label", print_label(grams), TOLVEX_OK);
  return 0;
}
