# Temperature and conductivity of the hole's fluid, logged down into undisturbed water.

[tool]
code = K225
short_code = TC
name = Fluid temperature and conductivity
maximum_current = 100

[mode 1]
name = Temperature, conductivity
kind = MUX
sensor_factors = f21,g21
parameters = L100
channel = Temperature  | Deg C | 1000 | 11000 | 0 | 50   | temperature
channel = Conductivity | US/CM | 500  | 20500 | 0 | 5000 | conductivity
