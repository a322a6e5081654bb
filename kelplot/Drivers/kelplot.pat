; Hatch patterns for drawings that name one without stating its lines. A file of this name in the folder kelplot of your
; own settings, and one given with --patterns, goes before this one, pattern by pattern. Lengths are millimetres of a
; metric drawing, and become inches in one that is not; after a line ";%UNITS=INCH" they are stated in inches.
;
; *NAME, what it is
; angle, x, y, shift, distance, dashes (gaps negative, dots 0)

*ANSI31, iron, brick and stone
45, 0,0, 0,3.175
*ANSI32, steel
45, 0,0, 0,9.525
45, 4.49013,0, 0,9.525
*ANSI33, bronze, brass and copper
45, 0,0, 0,6.35
45, 4.49013,0, 0,6.35, 3.175,-1.5875
*ANSI34, plastic and rubber
45, 0,0, 0,19.05
45, 4.49013,0, 0,19.05
45, 8.98026,0, 0,19.05
45, 13.4704,0, 0,19.05
*ANSI35, refractory material
45, 0,0, 0,6.35
45, 4.49013,0, 0,6.35, 7.9375,-1.5875,0,-1.5875
*ANSI36, marble, slate and glass
45, 0,0, 5.55625,3.175, 7.9375,-1.5875,0,-1.5875
*ANSI37, lead, zinc and insulation
45, 0,0, 0,3.175
135, 0,0, 0,3.175
*ANSI38, aluminium
45, 0,0, 0,3.175
135, 0,0, 6.35,3.175, 7.9375,-4.7625
*ISO02W100, dashes
0, 0,0, 0,5, 12,-3
*ISO03W100, dashes with wide gaps
0, 0,0, 0,5, 12,-18
*ISO04W100, long dashes and dots
0, 0,0, 0,5, 24,-3,0.5,-3
*ISO05W100, long dashes and two dots
0, 0,0, 0,5, 24,-3,0.5,-3,0.5,-3
*ISO06W100, long dashes and three dots
0, 0,0, 0,5, 24,-3,0.5,-3,0.5,-3,0.5,-3
*ISO07W100, dots
0, 0,0, 0,5, 0.5,-3
*ISO08W100, long and short dashes
0, 0,0, 0,5, 24,-3,6,-3
*ISO09W100, long dashes and two short ones
0, 0,0, 0,5, 24,-3,6,-3,6,-3
*ISO10W100, dashes and dots
0, 0,0, 0,5, 12,-3,0.5,-3
*ISO11W100, two dashes and a dot
0, 0,0, 0,5, 12,-3,12,-3,0.5,-3
*ISO12W100, dashes and two dots
0, 0,0, 0,5, 12,-3,0.5,-3,0.5,-3
*ISO13W100, two dashes and two dots
0, 0,0, 0,5, 12,-3,12,-3,0.5,-3,0.5,-3
*ISO14W100, dashes and three dots
0, 0,0, 0,5, 12,-3,0.5,-3,0.5,-3,0.5,-3
*ISO15W100, two dashes and three dots
0, 0,0, 0,5, 12,-3,12,-3,0.5,-3,0.5,-3,0.5,-3
*LINE, level lines
0, 0,0, 0,3.175
*NET, level and upright lines
0, 0,0, 0,3.175
90, 0,0, 0,3.175
*DASH, level dashes
0, 0,0, 3.175,3.175, 3.175,-3.175
*DOTS, dots
0, 0,0, 0.79375,1.5875, 0,-1.5875
