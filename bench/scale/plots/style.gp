# What the pictures have in common. "table" and "picture" are set before; sizes of tables are bytes, times
# microseconds. White behind it all, so that they can be read on a dark page, too.
set encoding utf8
set terminal svg size 820,380 dynamic enhanced font "sans-serif,13" linewidth 1.2 background "#ffffff"
set output picture
set datafile separator "\t"
set border 3 linecolor "#444444"
set tics nomirror out
set grid linecolor "#dddddd" linetype 1 linewidth 0.6
set key top left reverse Left samplen 2 textcolor "#222222"
set style line 1 linecolor "#0b62a8" linewidth 1.6 pointtype 7 pointsize 0.5
set style line 2 linecolor "#c2410c" linewidth 1.6 pointtype 5 pointsize 0.5
set style line 3 linecolor "#15803d" linewidth 1.6 pointtype 9 pointsize 0.6
set style line 4 linecolor "#7c3aed" linewidth 1.6 pointtype 13 pointsize 0.6
set style line 5 linecolor "#888888" linewidth 1.2 dashtype 2
set bars 0.6
