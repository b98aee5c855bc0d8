# A line for each column, on a logarithmic scale: equal distances are equal ratios.
set logscale y
set format y "%g"
stats data using 2 nooutput
columns = STATS_columns
set xrange [-0.2:]
plot for [i = 2:columns] data using i:xtic(1) with linespoints
