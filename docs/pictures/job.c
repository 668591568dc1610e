/* Prints three lines as a job of the given type: the example of docs/integration.md's pictures. */
#include <exports.h>
#include <stdio.h>
#include <stdlib.h>

int main(int count, char **arguments) {
  const int jobType = count > 1 ? atoi(arguments[1]) : 0;
  const int isLabel = jobType == 2 || (jobType >= 204 && jobType <= 208 && jobType != 207);
  const unsigned int width = isLabel ? 56 : 72;
  PrintTextByPaperWidth("Mountain cheese", 40, width);
  PrintTextByPaperWidth("0.356 kg x 18.90 per kg", 28, width);
  PrintTextByPaperWidth("6.73", 64, width);
  return BeginPrint(jobType) == TOLVEX_OK ? 0 : 1;
}
