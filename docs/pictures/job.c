/* Queues three lines and calls BeginPrint with each of the given job types in turn: the example of
 * docs/integration.md's pictures. */
#include <exports.h>
#include <stdio.h>
#include <stdlib.h>

int main(int count, char **arguments) {
  const int lastType = count > 1 ? atoi(arguments[count - 1]) : 0;
  const int isLabel = lastType == 2 || (lastType >= 204 && lastType <= 208 && lastType != 207);
  const unsigned int width = isLabel ? 56 : 72;
  int i;
  PrintTextByPaperWidth("Mountain cheese", 40, width);
  PrintTextByPaperWidth("0.356 kg x 18.90 per kg", 28, width);
  PrintTextByPaperWidth("6.73", 64, width);
  for (i = 1; i < count; ++i) {
    if (BeginPrint(atoi(arguments[i])) != TOLVEX_OK) return 1;
  }
  return 0;
}
