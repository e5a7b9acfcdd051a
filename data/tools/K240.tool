# Four normal resistivities with natural gamma and self-potential. The electronics count the same way whatever
# the record says, and the whole list (f21,g21,h21,i21,a1,j21) does not fit the 20 characters of the field:
# the program knows it for this tool.
# The seventh channel is not on the line: the program sets it to the constant 100.

[tool]
code = K240
short_code = NR
name = Normal resistivity, SP and gamma
maximum_current = 200

[mode 1]
name = Normal resistivity
kind = MUX
sensor_factors = f21,g21,h21,i21,a1
words = 6
parameters = L120
channel = Res 8 inch  | OHM-M | 500 | 20500 | 0    | 1000 | resistivity_8
channel = Res 16 inch | OHM-M | 500 | 20500 | 0    | 1000 | resistivity_16
channel = Res 32 inch | OHM-M | 500 | 20500 | 0    | 1000 | resistivity_32
channel = Res 64 inch | OHM-M | 500 | 20500 | 0    | 1000 | resistivity_64
channel = Gamma       | API   | 0   | 300   | 0    | 300  | gamma
channel = SP          | MV    | 500 | 4500  | -200 | 200  | sp
channel = Reference   | %     | 0   | 200   | 0    | 200
