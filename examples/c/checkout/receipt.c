/* Texts are UTF-8. The library takes text in the system's ANSI code page, which for this program is
 * UTF-8, too: on Windows (10 since 1903, 11) its manifest says so, on Linux the locale does. A
 * program that lives in another code page has its texts in that one and does everything else
 * the same way. MSVC reads this file right with /utf-8. */
#include "receipt.h"

#include <exports.h>
#include <stdio.h>
#include <string.h>

enum {
  PAPER_MM = 72, /* what the head reaches on 80 mm paper */
  DOTS_PER_MM = 8,
  NORMAL = 24, /* heights of the characters in dots; they are half as wide */
  LARGE = 48,
  LABEL_MM = 56,
  LINE_BYTES = 256,
  TAX_PERCENT = 7,
  NOTE_CENTS = 1000
};

/* Job types. */
enum { LABEL_JOB = 2, RECEIPT_JOB_WITH_CUT = 8 };

char* amount(char* text, size_t size, long cents) {
  snprintf(text, size, "%ld,%02ld", cents / 100, cents % 100);
  return text;
}

/* Columns that a text takes on paper: one for each character, two for a Chinese one. */
static int columns_of(const char* text) {
  int columns = 0;
  for (; *text != '\0'; ++text) {
    const unsigned char byte = (unsigned char)*text;
    if ((byte & 0xC0) == 0x80) continue; /* not the first byte of its character */
    columns += byte >= 0xE3 && byte <= 0xED ? 2 : 1;
  }
  return columns;
}

static int columns_at(int font_size) { return PAPER_MM * DOTS_PER_MM / (font_size / 2); }

/* Queuing sends nothing, so it leaves no result code behind: its verdict tells all. */
static void queued(int verdict) {
  if (verdict != TOLVEX_OK) give_up_with("Queuing a line or an image", verdict);
}

static void line(const char* text, int font_size) {
  queued(PrintTextByPaperWidth(text, (unsigned)font_size, PAPER_MM));
}

static void centred(const char* text, int font_size) {
  char full[LINE_BYTES];
  const int left = (columns_at(font_size) - columns_of(text)) / 2;
  snprintf(full, sizeof(full), "%*s%s", left > 0 ? left : 0, "", text);
  line(full, font_size);
}

/* One text at the left end, another at the right end. */
static void apart(const char* left, const char* right, int font_size) {
  char full[LINE_BYTES];
  const int between = columns_at(font_size) - columns_of(left) - columns_of(right);
  snprintf(full, sizeof(full), "%s%*s%s", left, between > 1 ? between : 1, "", right);
  line(full, font_size);
}

static void rule(void) {
  char full[LINE_BYTES] = {0};
  memset(full, '-', (size_t)columns_at(NORMAL));
  line(full, NORMAL);
}

static void print_article(const article* one) {
  char left[LINE_BYTES];
  char price[32];
  char per_kg[32];
  line(one->name, NORMAL);
  snprintf(left, sizeof(left), "  %ld,%03ld kg × %s €/kg", one->grams / 1000, one->grams % 1000,
           amount(per_kg, sizeof(per_kg), one->cents_per_kg));
  apart(left, amount(price, sizeof(price), one->cents), NORMAL);
}

static void print_total(long total, long cash) {
  char sum[32];
  char left[LINE_BYTES];
  const long tax = (total * TAX_PERCENT + (100 + TAX_PERCENT) / 2) / (100 + TAX_PERCENT);
  apart("SUMME €", amount(sum, sizeof(sum), total), LARGE);
  apart("Gegeben bar", amount(sum, sizeof(sum), cash), NORMAL);
  apart("Rückgeld", amount(sum, sizeof(sum), cash - total), NORMAL);
  snprintf(left, sizeof(left), "Enthaltene MwSt. %d %%", TAX_PERCENT);
  apart(left, amount(sum, sizeof(sum), tax), NORMAL);
}

void print_receipt(const char* logo_file, const char* date, const article* articles, size_t count) {
  long total = 0;
  size_t i;
  queued(PrintBitmapFile(logo_file, 0));
  centred("Lindenstraße 7 · 50674 Köln", NORMAL);
  /* An empty text prints nothing; a line feed is an empty line. */
  line("\n", NORMAL);
  apart("Bon 0042, Kasse 1", date, NORMAL);
  rule();
  for (i = 0; i < count; ++i) {
    print_article(&articles[i]);
    total += articles[i].cents;
  }
  rule();
  print_total(total, (total + NOTE_CENTS - 1) / NOTE_CENTS * NOTE_CENTS);
  line("\n", NORMAL);
  centred("Vielen Dank für Ihren Einkauf!", NORMAL);
  centred("谢谢惠顾 · Спасибо за покупку", NORMAL);
  line("\n\n", NORMAL); /* up to the knife, which sits above the head */
  if (BeginPrint(RECEIPT_JOB_WITH_CUT) != TOLVEX_OK) give_up("Printing the receipt");
}

void print_label(const article* one) {
  char text[LINE_BYTES];
  char price[32];
  queued(PrintText(one->name, 36));
  snprintf(text, sizeof(text), "Netto %ld,%03ld kg\n%s €/kg", one->grams / 1000, one->grams % 1000,
           amount(price, sizeof(price), one->cents_per_kg));
  queued(PrintText(text, 28));
  snprintf(text, sizeof(text), "%s €", amount(price, sizeof(price), one->cents));
  queued(PrintText(text, 72));
  queued(PrintText("Kühl lagern, 2–8 °C", NORMAL));
  if (BeginPrint(LABEL_JOB) != TOLVEX_OK) give_up("Printing the label");
}
