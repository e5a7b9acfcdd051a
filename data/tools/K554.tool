# Array induction: two spacings in the first mode; the second adds a third spacing and the coil's temperature, both
# plain levels.

[tool]
code = K554
short_code = INA
name = Array induction
maximum_current = 260

[mode 1]
name = Two spacings
kind = MUX
sensor_factors = H21,I21
parameters = L120
channel = Cond shallow | MS/M  | 400 | 2000 | 0 | 1000 | conductivity
channel = Cond deep    | MS/M  | 400 | 2000 | 0 | 1000 | conductivity

[mode 2]
name = Three spacings
kind = MUX
sensor_factors = H21,I21
parameters = L120
channel = Cond shallow | MS/M  | 400 | 2000 | 0 | 1000 | conductivity
channel = Cond deep    | MS/M  | 400 | 2000 | 0 | 1000 | conductivity
channel = Cond middle  | MS/M  | 0   | 4000 | 0 | 1000 | conductivity
channel = Coil temp    | Deg C | 0   | 4000 | 0 | 100  | temperature
