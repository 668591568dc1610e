/* A weighing session as a shop does it, with nothing but exports.h:
 * what scale is it, is it empty, a bowl on it, its tare, goods in the bowl, their net weight,
 * everything off, the tare cleared, zero.
 *
 * Build:  cc weighing_session.c -ltolvex_dll           (Linux)
 *         cl weighing_session.c tolvex_dll.lib         (Windows x64)
 * Run it while the service, or zelkad-sim in its place, is running. The program asks for what the
 * person at the scale has to do, and waits for it.
 *
 * Exit code: 0 the session went through, 1 it did not.
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

enum { POLL_MS = 100, PATIENCE_MS = 60000 };

typedef struct reading {
  int verdict; /* of read_standard */
  int stable;
  int at_zero;
  int tared;
  double net;
  double tare;
} reading;

/* What failed and why, in the words of the result-code table. */
static void give_up(const char* what) {
  printf("%s did not work: result code %d.\n", what, getLastErrCode());
  if (getLastErrCode() == TOLVEX_RESULT_SOCKET_INTERRUPT) {
    printf("The service does not answer. Is zelkad (or zelkad-sim) running?\n");
  }
  fflush(stdout);
  exit(1);
}

/* The texts of a record have no terminator of their own. The tare may be longer than its field; it
 * then runs on into the bytes behind it. */
static double number(const char* text, size_t length) {
  char terminated[32] = {0};
  memcpy(terminated, text, length);
  return atof(terminated);
}

static reading read_scale(void) {
  tolvex_weight weight;
  reading result;
  memset(&result, 0, sizeof(result));
  memset(&weight, 0, sizeof(weight));
  result.verdict = read_standard((char*)&weight);
  if (result.verdict == TOLVEX_FAILED) give_up("Reading the weight");
  /* Under load, over load, or an invalid weight, whose record is all zeros: nothing to read. */
  if (result.verdict != TOLVEX_OK || weight.mark != 'P') return result;
  result.stable = (weight.status & TOLVEX_WEIGHT_STABLE) != 0;
  result.at_zero = (weight.status & TOLVEX_WEIGHT_AT_ZERO) != 0;
  result.tared = (weight.status & TOLVEX_WEIGHT_TARE_ACTIVE) != 0;
  result.net = number(weight.net, sizeof(weight.net));
  result.tare = number(weight.tare, sizeof(weight.tare) + sizeof(weight.rest));
  return result;
}

static void show(const char* what, const reading* now) {
  printf("  %-16s net %8.3f kg, tare %6.3f kg%s%s%s\n", what, now->net, now->tare,
         now->stable ? ", stable" : ", moving", now->at_zero ? ", at zero" : "",
         now->tared ? ", tare active" : "");
  fflush(stdout);
}

static int is_empty(const reading* now) { return now->at_zero; }
static int has_load(const reading* now) { return now->net > 0.0005; }
static int is_lifted(const reading* now) { return now->net < -0.0005; }

/* Asks for something and reads the scale until a stable weight shows that it was done. */
static reading wait_for(const char* request, int (*is_done)(const reading*)) {
  unsigned waited;
  printf("> %s\n", request);
  fflush(stdout);
  for (waited = 0; waited < PATIENCE_MS; waited += POLL_MS) {
    const reading now = read_scale();
    if (now.verdict == TOLVEX_UNDER_LOAD) {
      printf("  under load: something is missing on the scale\n");
    } else if (now.verdict == TOLVEX_OVER_LOAD) {
      printf("  over load: take something off\n");
    } else if (now.stable && is_done(&now)) {
      return now;
    }
    pause_ms(POLL_MS);
  }
  printf("Nobody did that within %d seconds.\n", PATIENCE_MS / 1000);
  fflush(stdout);
  exit(1);
}

static void show_base_information(void) {
  tolvex_base_info info;
  int range;
  if (read_baseinfo((char*)&info) != TOLVEX_OK) give_up("Reading the base information");
  printf("Scale \"%.20s\", weights in %.4s\n", info.system_version, info.weight_unit);
  for (range = 0; range < 3 && info.max_range[range] > 0; ++range) {
    printf("  range %d: up to %d, in steps of %.3f\n", range + 1, (int)info.max_range[range],
           info.resolution[range] / 1000.0);
  }
  printf("  least weight %.3f, tare up to %.3f\n", info.min_range / 1000.0, info.max_tare / 1000.0);
  fflush(stdout);
}

int main(void) {
  char tare[11] = {0}; /* ten characters and the terminator that the library may leave out */
  reading now;
  double price;

  if (!checkConnection()) give_up("Asking the service for a sign of life");
  show_base_information();

  now = wait_for("Please empty the scale.", is_empty);
  show("empty", &now);

  now = wait_for("Please put the empty bowl on the scale.", has_load);
  show("bowl", &now);
  if (send_tare(tare) != TOLVEX_OK) give_up("Taking the tare");
  printf("  tare taken: %s kg\n", tare);

  now = wait_for("Please put the goods into the bowl.", has_load);
  show("goods", &now);
  price = now.net * 2.99;
  printf("  to pay: %.3f kg at 2.99 a kg = %.2f\n", now.net, price);

  now = wait_for("Please take everything off the scale.", is_lifted);
  show("nothing", &now);
  if (clear_tare(tare) != TOLVEX_OK) give_up("Clearing the tare");
  printf("  tare cleared: %s kg\n", tare);
  if (send_zero() != TOLVEX_OK) give_up("Setting the scale to zero");
  now = wait_for("The scale is set to zero.", is_empty);
  show("zero", &now);
  printf("The session is complete.\n");
  return 0;
}
