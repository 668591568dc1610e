set multiplot layout 1,2 margins 0.1,0.985,0.19,0.89 spacing 0.125
set xlabel "bytes of the reply"
set xrange [0:2100]
set xtics 512
set title "Cost of a raw command"
set ylabel "µs a call (median, quartiles)"
set yrange [0:*]
set key at graph 0.02,0.5
plot table using 1:2:3:4 with yerrorlines linestyle 1 title "through the library", \
     table using 1:5:6:7 with yerrorlines linestyle 2 title "bare send, poll, receive"
set title "The library's share"
set ytics 0.1
set ylabel "times the bare exchange"
set yrange [1:1.6]
set key at graph 0.02,0.97
plot table using 1:8:9:10 with yerrorlines linestyle 1 title "ratio of the pairs (median, quartiles)"
unset multiplot
