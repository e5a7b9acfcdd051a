# Induction conductivity and magnetic susceptibility; timed pulses or levels, as K551.

[tool]
code = K552
short_code = ICS
name = Induction and susceptibility
maximum_current = 220

[mode 1]
name = Induction, susceptibility
kind = MUX
sensor_factors = H21,I21
parameters = L120
channel = Conductivity   | MS/M    | 400 | 2000 | 0 | 1000 | conductivity
channel = Susceptibility | 10-5 SI | 400 | 2000 | 0 | 5000 | susceptibility
