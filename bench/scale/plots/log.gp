set multiplot layout 1,1 margins 0.1,0.985,0.19,0.89
set title "A record of the log, until the ring of ten files is full and emptied"
set xlabel "MiB in the ring"
set xrange [-1:53]
set xtics 5
set ylabel "µs a record"
set logscale y
set format y "10^{%T}"
set yrange [0.1:100000]
set key at graph 0.02,0.97 maxrows 3 width -2
plot table index 0 using ($1/1048576):2:3:4 with yerrorlines linestyle 1 title "median (quartiles of the turns)", \
     table index 0 using ($1/1048576):5:6:7 with yerrorlines linestyle 2 title "99 %", \
     table index 0 using ($1/1048576):8:9:10 with yerrorbars linestyle 5 dashtype 1 pointtype 7 pointsize 0.3 title "longest", \
     table index 1 using ($1/1048576):2:3:4 with yerrorbars linestyle 3 pointsize 0.9 title "opens the next file", \
     table index 2 using ($1/1048576):2:3:4 with yerrorbars linestyle 4 pointsize 1.1 title "empties all files"
unset multiplot
