Bush with a reamed bore of 1/2 inch, bar of 1 inch, bronze. Zero point: centre of the finished face. Tools: 1 right-hand turning tool, 2 centre drill, 3 drill 1/4, 4 drill 31/64, 5 counterbore, 6 reamer 1/2.
%
    N` G`   X `    Z `  F`  H 
    00M98    02     01          Play of the two spindles of the slides
    01M06    00     00T 01      Tool 1
    02 92  1500   1000          
    03M03                       
    04 00  1100     40          
    05 88    00     00  30  20  @  (2x)Facing Cycle
    06 00  1040     50          
    07 84   960 - 1100  40  20  @  (2x)Longitudinal Cycle
    08 00  1500   1000          
    09M06    00    450T 02      Tool 2, centre drill
    10 00    00   1000          On the centre line first
    11 00    00    100          then up to the face
    12 82       -  120  20      Centre, with a dwell at the bottom
    13 00    00   1000          
    14M06    00    620T 03      Tool 3, drill 1/4
    15 00    00    100          
    16 83       - 1200  40      @  (5x)Drilling Cycle with Withdrawal
    17 00    00   1000          
    18M06    00    640T 04      Tool 4, drill 31/64
    19 00    00    100          
    20 73       - 1200  40      @  (15x)Drilling Cycle with Chip Breakage
    21 00    00   1000          
    22M05                       
    23M22                       Output pin 18: air blast on
    24 04   300                 3 seconds
    25M23                       Output pin 18: air blast off
    26M00                       Stop: clear the chips
    27M03                       
    28M06    00    500T 05      Tool 5, counterbore
    29 00    00    100          
    30 81       -  125  20      Counterbore
    31 89       -  130  20      Smooth its bottom, with a dwell
    32 00    00   1000          
    33M06    00    700T 06      Tool 6, reamer
    34 00    00    100          
    35 85       - 1150  30      In and out at the same feed
    36 00    00   1000          
    37M05                       
    38M26                   01  One pulse for the counter of parts
    39M30                       
   "
