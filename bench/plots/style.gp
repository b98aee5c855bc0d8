# How all plots look. Set before: data, the table; out, the file; what, the title; unit, of the y axis.
set terminal svg noenhanced size 900,540 font "sans-serif,13" background "#ffffff"
set output out
set title what
set ylabel unit
set datafile separator "\t"
set datafile missing "-"
set grid ytics lc rgb "#dddddd"
set key outside right top autotitle columnhead
set border 3
set tics nomirror

# As many colours as there are contenders at most.
array colours[12] = ["#c00000", "#ff7f0e", "#555555", "#aaaaaa", "#1f77b4", "#17becf", "#9467bd", "#2ca02c", \
                     "#8c564b", "#e377c2", "#bcbd22", "#7f7fff"]
do for [i = 1:12] { set linetype i lc rgb colours[i] lw 2 pt i ps 0.7 }
set linetype cycle 12
