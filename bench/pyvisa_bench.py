"""The same setting through PyVISA and the same library, for comparison."""
import sys
import time

import pyvisa

CALLS = 5000
instrument = pyvisa.ResourceManager(sys.argv[1]).open_resource(
    "USB0::0x5645::0x0040::20215678::0::INSTR")
best = float("inf")
for _ in range(5):
    start = time.perf_counter()
    for _ in range(CALLS):
        instrument.query("FREQ %f Hz;FREQ?" % 2.5e9)
        instrument.query("SYSTem:ERRor?")
    best = min(best, (time.perf_counter() - start) / CALLS)
print("setting, through PyVISA:      %7.2f us" % (best * 1e6))
