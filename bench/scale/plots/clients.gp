set terminal svg size 820,700 dynamic enhanced font "sans-serif,13" linewidth 1.2 background "#ffffff"
set multiplot layout 2,2 margins 0.1,0.985,0.105,0.94 spacing 0.125,0.2
set xlabel "clients, a process each"
set logscale x
set xrange [0.8:650]
set xtics (1, 2, 5, 10, 20, 50, 100, 200, 500)
set title "Exchanges in all"
set ylabel "thousand a second (median, quartiles)"
set yrange [0:*]
plot table using 1:($2/1e3):($3/1e3):($4/1e3) with yerrorlines linestyle 1 notitle
set title "Time of a call"
set ylabel "ms (median, quartiles of the trials)"
set logscale y
set format y "%g"
set yrange [0.005:1000]
set key at graph 0.02,0.97
plot table using 1:($11/1e3):($12/1e3):($13/1e3) with yerrorlines linestyle 3 title "longest", \
     table using 1:($8/1e3):($9/1e3):($10/1e3) with yerrorlines linestyle 2 title "99 %", \
     table using 1:($5/1e3):($6/1e3):($7/1e3) with yerrorlines linestyle 1 title "median"
set title "Until all are connected and answered once"
set ylabel "ms (median, quartiles)"
set yrange [0.1:*]
plot table using 1:($14/1e3):($15/1e3):($16/1e3) with yerrorlines linestyle 1 notitle
unset logscale y
set title "The simulator"
set ylabel "MiB, and processor cores"
set yrange [0:*]
set key at graph 0.02,0.5
plot table using 1:($20/1048576):($21/1048576):($22/1048576) with yerrorlines linestyle 1 title "memory, MiB", \
     table using 1:17:18:19 with yerrorlines linestyle 2 title "cores in use"
unset multiplot
