# Water quality: five sensors of the hole's fluid behind one another, each a plain level.

[tool]
code = K260
short_code = WQ
name = Water quality
maximum_current = 130

[mode 1]
name = Water quality
kind = MUX
sensor_factors = t1,u1,v1,w1,x1
parameters = L100 | PA50
channel = Temperature  | Deg C | 0 | 4000 | 0 | 50    | temperature
channel = Conductivity | US/CM | 0 | 4000 | 0 | 20000 | conductivity
channel = Acidity      | PH    | 0 | 4000 | 0 | 14    | ph
channel = Oxygen       | MG/L  | 0 | 4000 | 0 | 20    | oxygen
channel = Pressure     | KPA   | 0 | 4000 | 0 | 10000 | pressure
