set terminal svg size 760,420 font "sans,12" background "white"
set logscale xy
set xlabel "options registered, and (from 100 on) as many arguments"
set ylabel "microseconds for a cycle"
set key left top
set grid
plot for [i=2:10] "cycle.dat" using 1:i with linespoints linewidth (i == 2 ? 3 : 1) title columnheader(i) noenhanced
