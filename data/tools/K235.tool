# Magnetic susceptibility with natural gamma.

[tool]
code = K235
short_code = MS
name = Magnetic susceptibility and gamma
maximum_current = 120

[mode 1]
name = Susceptibility
kind = MUX
sensor_factors = a1,h21
parameters = L120
channel = Gamma          | API     | 0   | 300   | 0 | 300  | gamma
channel = Susceptibility | 10-5 SI | 500 | 10500 | 0 | 5000 | susceptibility
