# The dialect of bank.csv: semicolons, day.month.year, decimal commas.
separator = ;
dates = dmy
decimal = ,
skip = 2
columns = Date,Description,Amount,-
