# The slim fluid sampler: no piston gauge, and nothing derived behind its three words.

[tool]
code = K307
short_code = FSS
name = Fluid sampler, slim
maximum_current = 300

[mode 1]
name = Sampler, Celsius
kind = MUX
sensor_factors = t1,u1,f21
parameters = L100 | PA50
channel = Chamber     | KPA   | 0    | 4000  | 0 | 20000 | pressure
channel = Hydrostatic | KPA   | 0    | 4000  | 0 | 20000 | pressure
channel = Fluid temp  | Deg C | 1000 | 11000 | 0 | 100   | temperature

[mode 2]
name = Sampler, Fahrenheit
kind = MUX
sensor_factors = t1,u1,f21
parameters = L100 | PA50
channel = Chamber PSI     | PSI   | 0    | 4000  | 0  | 3000 | pressure
channel = Hydrostatic PSI | PSI   | 0    | 4000  | 0  | 3000 | pressure
channel = Fluid temp F    | Deg F | 1000 | 11000 | 32 | 212  | temperature
