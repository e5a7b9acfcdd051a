# Deviation: three magnetometers and three accelerometers, counts of 0.0001 of the full scale and of 1 g. The tool
# sends eight words as they stand; the program writes azimuth and inclination over the last two and derives the
# other four channels behind them. Angles and the total field are counts of 0.0001 too.

[tool]
code = K417
short_code = DEV
name = Borehole deviation
maximum_current = 120

[mode 1]
name = Deviation
kind = MUX
sensor_factors = pr8
words = 8
channel = Mag X       | COUNTS  | -10000  | 10000   | -10000 | 10000 | magx
channel = Mag Y       | COUNTS  | -10000  | 10000   | -10000 | 10000 | magy
channel = Mag Z       | COUNTS  | -10000  | 10000   | -10000 | 10000 | magz
channel = Acc X       | COUNTS  | -10000  | 10000   | -10000 | 10000 | accx
channel = Acc Y       | COUNTS  | -10000  | 10000   | -10000 | 10000 | accy
channel = Acc Z       | COUNTS  | -10000  | 10000   | -10000 | 10000 | accz
channel = Azimuth     | DEGREES | 0       | 3600000 | 0      | 360
channel = Inclination | DEGREES | -900000 | 900000  | -90    | 90
channel = Total field | UNITS   | 0       | 20000   | 0      | 2
channel = East        | M       | -10     | 10      | -10    | 10
channel = North       | M       | -10     | 10      | -10    | 10
channel = Distance    | M       | 0       | 20      | 0      | 20
