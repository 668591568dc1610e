#include "scale.h"

#include <exports.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "checkout.h"

#ifdef _WIN32
#include <windows.h>
static void pause_ms(unsigned ms) { Sleep(ms); }
#else
#include <poll.h>
static void pause_ms(unsigned ms) { poll(NULL, 0, (int)ms); }
#endif

enum { POLL_MS = 100, PATIENCE_MS = 60000 };

int is_empty(const reading* now) { return now->at_zero; }
int has_load(const reading* now) { return now->net_grams > 0; }
int is_lifted(const reading* now) { return now->net_grams < 0; }

/* The texts of a record have no terminator of their own. The tare may be longer than its field; it
 * then runs on into the bytes behind it. */
static int grams(const char* text, size_t length) {
  char terminated[32] = {0};
  double kilograms;
  memcpy(terminated, text, length);
  kilograms = atof(terminated);
  return (int)(kilograms * 1000 + (kilograms < 0 ? -0.5 : 0.5));
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
  result.net_grams = grams(weight.net, sizeof(weight.net));
  result.tare_grams = grams(weight.tare, sizeof(weight.tare) + sizeof(weight.rest));
  return result;
}

void show_scale(void) {
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

reading wait_for(const char* request, int (*is_done)(const reading*)) {
  unsigned waited;
  int told = 0; /* the last verdict that was told */
  printf("> %s\n", request);
  fflush(stdout);
  for (waited = 0; waited < PATIENCE_MS; waited += POLL_MS) {
    const reading now = read_scale();
    if (now.verdict == TOLVEX_OK && now.stable && is_done(&now)) {
      printf("  net %.3f kg, tare %.3f kg\n", now.net_grams / 1000.0, now.tare_grams / 1000.0);
      fflush(stdout);
      return now;
    }
    if (now.verdict != told) {
      if (now.verdict == TOLVEX_UNDER_LOAD) printf("  under load: something is missing\n");
      if (now.verdict == TOLVEX_OVER_LOAD) printf("  over load: take something off\n");
      told = now.verdict;
      fflush(stdout);
    }
    pause_ms(POLL_MS);
  }
  printf("Nobody did that within %d seconds.\n", PATIENCE_MS / 1000);
  fflush(stdout);
  exit(1);
}

void take_tare(void) {
  char tare[11] = {0}; /* ten characters and the terminator that the library may leave out */
  if (send_tare(tare) != TOLVEX_OK) give_up("Taking the tare");
  printf("  tare taken: %s kg\n", tare);
}

void drop_tare(void) {
  char tare[11] = {0};
  if (clear_tare(tare) != TOLVEX_OK) give_up("Clearing the tare");
  printf("  tare cleared: %s kg\n", tare);
}
