# Guard (focused) resistivity with natural gamma. The second mode leaves the resistivity out, for dry holes.

[tool]
code = K215
short_code = GR
name = Guard resistivity and gamma
maximum_current = 160

[mode 1]
name = Guard resistivity
kind = MUX
sensor_factors = a1,f21
parameters = L120
channel = Gamma     | API   | 0   | 300   | 0 | 300  | gamma
channel = Guard res | OHM-M | 500 | 20500 | 0 | 2000 | resistivity

[mode 2]
name = Gamma only
kind = PULSE
sensor_factors = a1
parameters = L120
channel = Gamma     | API   | 0   | 300   | 0 | 300  | gamma
