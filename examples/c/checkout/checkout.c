/* A sale at a checkout, with nothing but exports.h: two articles are weighed, one of them in a
 * bowl; the receipt is printed and cut, the drawer opened, and one article gets a label.
 *
 * Build, in this folder, with H for the folder of exports.h and L for that of the library:
 *   cc -I H checkout.c scale.c receipt.c -L L -ltolvex_dll -o checkout            (Linux)
 *   x86_64-w64-mingw32-windres checkout.rc checkout.o                             (Windows x64)
 *   x86_64-w64-mingw32-gcc -I H *.c checkout.o -L L -ltolvex_dll -o checkout.exe
 * Run it while the service, or zelkad-sim in its place, is running. The program asks for what the
 * person at the scale has to do, and waits for it.
 *
 * usage: checkout [LOGO [DATE]]
 *   LOGO   the picture at the head of the receipt, default logo.bmp
 *   DATE   what the receipt shows as its date, default today
 * Exit code: 0 the sale went through, 1 it did not.
 */
#include "checkout.h"

#include <exports.h>
#include <stdio.h>
#include <stdlib.h>
#include <time.h>

#include "receipt.h"
#include "scale.h"

enum { TICKET_PRINTER = 1 };

typedef struct meaning {
  int code;
  const char* text;
} meaning;

static const meaning meanings[] = {
    {TOLVEX_FONT_TOO_SMALL, "The font is too small."},
    {TOLVEX_FONT_TOO_BIG, "The font is too big."},
    {TOLVEX_RESULT_SOCKET_INTERRUPT,
     "The service does not answer. Is zelkad (or zelkad-sim) running?"},
    {TOLVEX_RESULT_PRINTER_IS_BUSY, "The printer is busy."},
    {TOLVEX_RESULT_OUT_OF_PAPER, "The printer is out of paper."},
    {TOLVEX_RESULT_PRINT_HEAD_IS_HOT, "The print head is too hot; let it cool down."},
    {TOLVEX_RESULT_PRINTER_NOT_FOUND, "There is no such printer."},
    {TOLVEX_RESULT_LC_NOT_CONNECTED, "The scale is not connected."},
};

void give_up_with(const char* what, int code) {
  size_t i;
  printf("%s did not work: result code %d.\n", what, code);
  for (i = 0; i < sizeof(meanings) / sizeof(meanings[0]); ++i) {
    if (meanings[i].code == code) printf("%s\n", meanings[i].text);
  }
  fflush(stdout);
  exit(1);
}

void give_up(const char* what) { give_up_with(what, getLastErrCode()); }

/* Whole cents, half a cent up. */
static void price(article* one, long grams) {
  char text[32];
  one->grams = grams;
  one->cents = (grams * one->cents_per_kg + 500) / 1000;
  printf("  to pay: %s\n", amount(text, sizeof(text), one->cents));
}

static void weigh_loose(article* one) {
  reading now;
  wait_for("Please empty the scale.", is_empty);
  now = wait_for("Please put the apples on the scale.", has_load);
  price(one, now.net_grams);
}

static void weigh_in_bowl(article* one) {
  reading now;
  wait_for("Please take the apples off.", is_empty);
  wait_for("Please put the empty bowl on the scale.", has_load);
  take_tare();
  now = wait_for("Please put the cheese into the bowl.", has_load);
  price(one, now.net_grams);
  wait_for("Please take everything off the scale.", is_lifted);
  drop_tare();
}

static const char* today(char* text, size_t size) {
  const time_t now = time(NULL);
  strftime(text, size, "%d.%m.%Y", localtime(&now));
  return text;
}

int main(int argc, char** argv) {
  article articles[] = {{"Äpfel Boskoop", 299, 0, 0}, {"Bergkäse, würzig", 1890, 0, 0}};
  char date[16];
  int state;

  if (!checkConnection()) give_up("Asking the service for a sign of life");
  show_scale();
  weigh_loose(&articles[0]);
  weigh_in_bowl(&articles[1]);

  state = GetPrinterStatus(TICKET_PRINTER);
  if (state != 0) give_up_with("Looking at the printer", state);
  print_receipt(argc > 1 ? argv[1] : "logo.bmp", argc > 2 ? argv[2] : today(date, sizeof(date)),
                articles, sizeof(articles) / sizeof(articles[0]));
  printf("Receipt printed and cut.\n");
  if (OpenCashDrawerEx() != TOLVEX_OK) give_up("Opening the drawer");
  printf("Drawer opened.\n");
  print_label(&articles[1]);
  printf("Label printed.\n");
  printf("The sale is complete.\n");
  return 0;
}
