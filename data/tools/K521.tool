# Sonic with the full waveform: works with an LCU4 only, and its run reads waveforms instead of words. The channels
# are what the run keeps of each waveform.

[tool]
code = K521
short_code = FWS
name = Full waveform sonic
maximum_current = 400

[mode 1]
name = Full waveform
sensor_factors = t1,u1,v1,w1
channel = Near time | US | 0 | 4000 | 0 | 2000 | slowness
channel = Far time  | US | 0 | 4000 | 0 | 2000 | slowness
channel = Near amp  | MV | 0 | 4000 | 0 | 1000 | voltage
channel = Far amp   | MV | 0 | 4000 | 0 | 1000 | voltage
