/* The scale, for a program that asks somebody to put things on it. */
#ifndef SCALE_H
#define SCALE_H

typedef struct reading {
  int verdict; /* of read_standard */
  int stable;
  int at_zero;
  int net_grams;
  int tare_grams;
} reading;

/* What a reading may be waited for. */
int is_empty(const reading* now);
int has_load(const reading* now);
int is_lifted(const reading* now); /* less than nothing: the tared bowl is off */

/* Tells what scale it is. */
void show_scale(void);

/* Asks for something and reads the scale until a stable weight shows that it was done. Gives up
 * when nobody does it. */
reading wait_for(const char* request, int (*is_done)(const reading*));

/* Takes what lies on the scale as the tare; clears the tare. */
void take_tare(void);
void drop_tare(void);

#endif
