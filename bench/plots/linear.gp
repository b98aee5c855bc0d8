# A line for each column, on a linear scale that begins at 0.
set yrange [0:]
stats data using 2 nooutput
columns = STATS_columns
plot for [i = 2:columns] data using i:xtic(1) with linespoints
