# Three-arm caliper: one level for the mean of the three arms.

[tool]
code = K210
short_code = CAL3
name = Three-arm caliper
maximum_current = 180

[mode 1]
name = Caliper
kind = MUX
sensor_factors = p1
parameters = L100
channel = Caliper | MM | -1800 | 1800 | 50 | 500 | caliper
