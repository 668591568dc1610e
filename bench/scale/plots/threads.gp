set multiplot layout 1,2 margins 0.085,0.985,0.19,0.89 spacing 0.11
set xlabel "threads that call"
set logscale x 2
set xrange [0.9:18]
set title "Calls in all"
set ylabel "thousand calls a second (median, quartiles)"
set yrange [0:*]
set key at graph 0.02,0.33 font ",11"
plot table index 0 using 1:($2/1e3):($3/1e3):($4/1e3) with yerrorlines linestyle 1 title "weighing, one core", \
     table index 1 using 1:($2/1e3):($3/1e3):($4/1e3) with yerrorlines linestyle 2 title "half of them printing, one core", \
     table index 2 using 1:($2/1e3):($3/1e3):($4/1e3) with yerrorlines linestyle 3 title "weighing, both cores", \
     table index 3 using 1:($2/1e3):($3/1e3):($4/1e3) with yerrorlines linestyle 4 title "half of them printing, both cores"
set title "Time of a call"
set ylabel "µs"
set logscale y
set yrange [3:*]
set key at graph 0.02,0.98
plot table index 0 using 1:8 with linespoints linestyle 1 dashtype 3 title "99 %, weighing, one core", \
     table index 2 using 1:8 with linespoints linestyle 3 dashtype 3 title "99 %, weighing, both cores", \
     table index 0 using 1:5 with linespoints linestyle 1 title "median, one core", \
     table index 2 using 1:5 with linespoints linestyle 3 title "median, both cores"
unset multiplot
