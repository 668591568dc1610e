set multiplot layout 1,2 margins 0.1,0.985,0.19,0.89 spacing 0.125
set xlabel "threads that call"
set logscale x 2
set xrange [0.9:18]
set title "Calls in all"
set ylabel "thousand calls a second (median, quartiles)"
set yrange [0:340]
set key at graph 0.02,0.98 font ",11"
plot table index 0 using 1:($2/1e3):($3/1e3):($4/1e3) with yerrorlines linestyle 1 title "weighing, one core", \
     table index 1 using 1:($2/1e3):($3/1e3):($4/1e3) with yerrorlines linestyle 2 title "half of them printing, one core", \
     table index 2 using 1:($2/1e3):($3/1e3):($4/1e3) with yerrorlines linestyle 3 title "weighing, both cores", \
     table index 3 using 1:($2/1e3):($3/1e3):($4/1e3) with yerrorlines linestyle 4 title "half of them printing, both cores"
set title "Time of a call"
set ylabel "µs"
set logscale y
set yrange [3:40000]
plot table index 0 using 1:5:6:7 with yerrorlines linestyle 1 title "median, weighing, one core", \
     table index 0 using 1:8:9:10 with yerrorlines linestyle 1 dashtype 3 title "99 %, weighing, one core", \
     table index 1 using 1:5:6:7 with yerrorlines linestyle 2 title "median, half of them printing, one core", \
     table index 1 using 1:8:9:10 with yerrorlines linestyle 2 dashtype 3 title "99 %, half of them printing, one core"
unset multiplot
