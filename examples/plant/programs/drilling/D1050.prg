; D1050 hinge, two holes, as it came from cell 1
G71
G90
ENABLE X Y Z
G0 X12 Y8
G1 Z-5 F150
G0 Z4
X38
G1 Z-5
G0 Z25
M30
