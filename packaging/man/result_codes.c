/* Writes the section of tolvex(3) with the result codes and answers, from their table in the header. */
#include <exports.h>
#include <stdio.h>

/* A paragraph: number, text and constant, then what it means and what to do. */
static void paragraph(int code, const char *constant, const char *text, const char *meaning,
                      const char *remedy) {
  printf(".TP\n.BR \"%s%d\" \" %s (%s)\"\n%s\n.br\nWhat to do: %s\n", code < 0 ? "\\-" : "",
         code < 0 ? -code : code, text, constant, meaning, remedy);
}

#define CODE(code, NAME, Name, text, meaning, remedy) \
  paragraph(code, "TOLVEX_RESULT_" #NAME, text, meaning, remedy);
#define ANSWER(constant, text, meaning, remedy) \
  paragraph(constant, #constant, text, meaning, remedy);

int main(void) {
  puts(".SH RESULT CODES");
  TOLVEX_RESULT_CODES(CODE)
  puts(".SH OTHER ANSWERS");
  TOLVEX_ANSWERS(ANSWER)
  return 0;
}
