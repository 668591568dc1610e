/* The library as it is when memory runs out while a job is queued, which nothing else brings about: PrintText refuses
 * the text "no memory". All other functions are the library's own, on which this one depends. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <exports.h>
#include <string.h>

int PrintText(const char *text, unsigned int fontSize) {
  int (*own)(const char *, unsigned int);
  *(void **)&own = dlsym(RTLD_NEXT, "PrintText");
  return strcmp(text, "no memory") == 0 ? TOLVEX_FAILED : own(text, fontSize);
}
