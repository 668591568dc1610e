/* The receipt and the label. */
#ifndef RECEIPT_H
#define RECEIPT_H

#include <stddef.h>

#include "checkout.h"

/* Prints the receipt of a sale, paid with the next ten-euro notes, with the logo at its head, and cuts it. date is text
 * such as "21.11.2026". */
void print_receipt(const char* logo_file, const char* date, const article* articles, size_t count);

/* Prints one label for an article. */
void print_label(const article* one);

/* "1,44" of 144 cents. Returns text, which has room for size bytes. */
char* amount(char* text, size_t size, long cents);

#endif
