# Flow in the hole: two impellers that count in both directions, so the program takes channels 5 and 6 as count
# rates whatever stands in the text, and words from channel 4 on as signed.
# The seventh channel is not on the line: the program keeps a place for it and sets it to 0.

[tool]
code = K245
short_code = FLOW
name = Impeller flowmeter, temperature, gamma
maximum_current = 150

[mode 1]
name = Flow
kind = MUX
sensor_factors = a1,f21,g21,t1,a1,b1
words = 6
parameters = L110
channel = Gamma          | API   | 0     | 300   | 0   | 300  | gamma
channel = Temperature    | Deg C | 1000  | 11000 | 0   | 50   | temperature
channel = Conductivity   | US/CM | 500   | 20500 | 0   | 5000 | conductivity
channel = Differential   | KPA   | -4000 | 4000  | -20 | 20   | pressure
channel = Impeller       | RPS   | 0     | 200   | 0   | 20   | flow
channel = Impeller spare | RPS   | 0     | 200   | 0   | 20   | flow
channel = Net flow       | L/MIN | 0     | 100   | 0   | 100
