# Precision temperature: a fast and a slow sensor, with the casing collar locator. The two modes differ in the unit
# of the temperatures, whose sensors have names, and so calibrations, of their own.

[tool]
code = K333
short_code = PT
name = Precision temperature
maximum_current = 90

[mode 1]
name = Temperature, Celsius
kind = MUX
sensor_factors = f21,g21,p1
parameters = L100
channel = Temperature fast | Deg C | 1000  | 11000 | 0    | 100  | temperature
channel = Temperature slow | Deg C | 1000  | 11000 | 0    | 100  | temperature
channel = Collar locator   | MV    | -1000 | 1000  | -500 | 500  | voltage

[mode 2]
name = Temperature, Fahrenheit
kind = MUX
sensor_factors = f21,g21,p1
parameters = L100
channel = Temperature fast F | Deg F | 1000  | 11000 | 32   | 212  | temperature
channel = Temperature slow F | Deg F | 1000  | 11000 | 32   | 212  | temperature
channel = Collar locator     | MV    | -1000 | 1000  | -500 | 500  | voltage
