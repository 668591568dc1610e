/* A program in C that loads the library, reads a weight, and writes how many milliseconds both took, as a
 * double, to the descriptor that is named.
 * usage: first_weight LIBRARY ADDRESS DESCRIPTOR */
#define _POSIX_C_SOURCE 200809L
#include <dlfcn.h>
#include <exports.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

typedef int (*set_ip)(const char *ip);
typedef int (*read_weight)(char *record);

static double milliseconds(void) {
  struct timespec now = {0, 0};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return (double)now.tv_sec * 1e3 + (double)now.tv_nsec / 1e6;
}

int main(int argc, char **argv) {
  tolvex_weight weight;
  void *library = NULL;
  set_ip set = NULL;
  read_weight read = NULL;
  double time = 0;
  if (argc != 4) return 2;
  time = milliseconds();
  library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (library == NULL) return 1;
  *(void **)&set = dlsym(library, "SetServerIpForRemoteAccess");
  *(void **)&read = dlsym(library, "read_standard");
  if (set == NULL || read == NULL || set(argv[2]) != TOLVEX_OK) return 1;
  if (read((char *)&weight) != TOLVEX_OK || memcmp(weight.net, "01.2500", 7) != 0) return 1;
  time = milliseconds() - time;
  return write(atoi(argv[3]), &time, sizeof(time)) == (ssize_t)sizeof(time) ? 0 : 1;
}
