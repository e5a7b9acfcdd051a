# Formation density: gamma-gamma with two spacings, a one-arm caliper and natural gamma above the source.
# Counts fall as density rises, so the scales of the two detectors run backwards against their calibrated ones.

[tool]
code = K230
short_code = DD
name = Dual density, caliper and gamma
maximum_current = 150

[mode 1]
name = Density
kind = MUX
sensor_factors = a1,b1,c1,p1
parameters = L140
channel = Gamma         | API  | 0    | 300  | 0 | 300 | gamma
channel = Long density  | G/CC | 2500 | 250  | 1 | 3   | density
channel = Short density | G/CC | 9000 | 1500 | 1 | 3   | density
channel = Caliper       | MM   | -1500 | 1500 | 50 | 250 | caliper

[mode 2]
name = Density, fast
kind = MUX
sensor_factors = a1,b1
parameters = L140
channel = Gamma         | API  | 0    | 300  | 0 | 300 | gamma
channel = Long density  | G/CC | 2500 | 250  | 1 | 3   | density
