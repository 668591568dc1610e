/* What the parts of the example share. */
#ifndef CHECKOUT_H
#define CHECKOUT_H

/* One article of the sale. Texts are UTF-8. */
typedef struct article {
  const char* name;
  long cents_per_kg;
  long grams;
  long cents;
} article;

/* Tells what did not work, with the result code or verdict and what it means here, and ends the
 * program with exit code 1. The first one takes the library's last result code. */
void give_up(const char* what);
void give_up_with(const char* what, int code);

#endif
