# Induction conductivity with the temperature of its coil, which has no item in the text: a plain level. With one
# among its channels an LCU4 is also told ER30.

[tool]
code = K553
short_code = INT
name = Induction with coil temperature
maximum_current = 240

[mode 1]
name = Induction, temperature
kind = MUX
sensor_factors = H21,I21
parameters = L120
channel = Cond shallow | MS/M  | 400 | 2000 | 0 | 1000 | conductivity
channel = Cond deep    | MS/M  | 400 | 2000 | 0 | 1000 | conductivity
channel = Coil temp    | Deg C | 0   | 4000 | 0 | 100  | temperature
