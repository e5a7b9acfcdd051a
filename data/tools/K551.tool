# Induction conductivity. An LCU2+ times its pulses (H21,I21); an LCU4 is told to read the same sensors as levels,
# so the scales suit both: above 320 pulses a second, below 2048 counts.

[tool]
code = K551
short_code = IND
name = Induction conductivity
maximum_current = 220

[mode 1]
name = Induction
kind = MUX
sensor_factors = H21,I21
parameters = L120
channel = Cond shallow | MS/M | 400 | 2000 | 0 | 1000 | conductivity
channel = Cond deep    | MS/M | 400 | 2000 | 0 | 1000 | conductivity
