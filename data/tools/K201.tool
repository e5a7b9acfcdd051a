# Natural gamma: one scintillation counter, the tool that every other run is tied to by depth.

[tool]
code = K201
short_code = NG
name = Natural gamma
maximum_current = 80

[mode 1]
name = Natural gamma
kind = PULSE
sensor_factors = a1
parameters = L120
channel = Gamma | CPS | 0 | 300 | 0 | 300 | gamma
