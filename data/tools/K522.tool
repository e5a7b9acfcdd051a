# Sonic that picks its arrivals downhole and sends eight words as they stand.
# The ninth channel is not on the line: the program keeps a place for it and sets it to 0.

[tool]
code = K522
short_code = SON
name = Compensated sonic
maximum_current = 280

[mode 1]
name = Sonic
kind = MUX
sensor_factors = pr8
words = 8
channel = Near time 1 | US   | 0 | 4000 | 0   | 2000 | slowness
channel = Far time 1  | US   | 0 | 4000 | 0   | 2000 | slowness
channel = Near time 2 | US   | 0 | 4000 | 0   | 2000 | slowness
channel = Far time 2  | US   | 0 | 4000 | 0   | 2000 | slowness
channel = Near amp    | MV   | 0 | 4000 | 0   | 1000 | voltage
channel = Far amp     | MV   | 0 | 4000 | 0   | 1000 | voltage
channel = Gamma       | API  | 0 | 300  | 0   | 300  | gamma
channel = Caliper     | MM   | 0 | 4000 | 50  | 250  | caliper
channel = Slowness    | US/M | 0 | 800  | 0   | 800
