# A group of bars for each row, on a logarithmic scale.
set logscale y
set format y "%g"
set style data histograms
set style histogram clustered gap 1
set style fill solid 0.85 noborder
stats data using 2 nooutput
columns = STATS_columns
plot for [i = 2:columns] data using i:xtic(1)
