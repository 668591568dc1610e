set multiplot layout 1,2 margins 0.1,0.985,0.19,0.89 spacing 0.125
set logscale x
set format x "10^{%T}"
set xrange [7:140000]
unset mxtics
unset mytics
set xlabel "lines of the job"
set title "Cost of a line"
set ylabel "µs a line (median, quartiles)"
set yrange [0:*]
set key at graph 0.02,0.55
plot table using 1:5:6:7 with yerrorlines linestyle 1 title "BeginPrint", \
     table using 1:2:3:4 with yerrorlines linestyle 2 title "PrintText"
set title "Memory of the job, at its peak"
set ylabel "KiB"
set logscale y
set format y "10^{%T}"
set xrange [700:140000] # of shorter jobs the system tells nothing: it counts a peak to some 100 KiB
set yrange [30:30000]
set key at graph 0.02,0.95
bytes_of_line = 56 # a header of 12 and a text of 44
plot table using 1:($8 > 0 ? $8/1024 : 1/0):($9 > 0 ? $9/1024 : $8/1024):($10/1024) with yerrorlines linestyle 1 title "measured", \
     x*bytes_of_line/1024 with lines linestyle 5 title "its records alone"
unset multiplot
