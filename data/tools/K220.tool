# Neutron porosity with natural gamma. Counts fall as porosity rises.

[tool]
code = K220
short_code = NEU
name = Neutron porosity and gamma
maximum_current = 140

[mode 1]
name = Neutron
kind = MUX
sensor_factors = a1,b1
parameters = L140
channel = Gamma    | API | 0    | 300 | 0 | 300 | gamma
channel = Porosity | %   | 3000 | 200 | 0 | 60  | porosity
