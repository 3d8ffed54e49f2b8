Typical mistakes on the MK4 and what the program says about them. Limits are checked on every line. The last mistake ends the walk: the lines behind it are not reached.
%
    N` G`   X `    Z `  F`  H 
    00M06    00     00T 01      This line is right
    01 92  3000    500          
    02 00  6000    100          The slide ends at 59.99 mm
    03 01  2000    100 500      The highest feed is 499
    04 84  1600 - 1000  80 100  @  (2x)Longitudinal Cycle
    05 86  1600 - 1000  30  05  A grooving tool is 0.10 mm wide at least
    06 33       - 2000K 01      The finest pitch is 0.02 mm
    07 04 - 100                 Time can't be negative
    08 21                       cmdSKP is no command; cmdSKIP is one
    09 00  1000     00          Right again
    10 03  2000 -  400  60      5 mm across, 4 mm along: needs an M99
    11 00  3000    500          Not reached, as the line above ends it
    12M30                       Not reached
   M
