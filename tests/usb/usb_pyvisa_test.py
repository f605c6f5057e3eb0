"""Drives the instruments on USB through PyVISA: what the simulated instrument is tried with, and
what is other over a real bus.

Usage: usb_pyvisa_test.py LIBRARY
"""

import pathlib
import sys
import time
import unittest

import pyvisa
from pyvisa.constants import EventMechanism, EventType, StatusCode

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "demo"))
import pyvisa_test as simulated

WITH_INTERRUPT_ENDPOINT = "USB0::0x5645::0x0040::1111::INSTR"
simulated.ADDRESS = "USB0::0x5645::0x0040::20215678::INSTR"


class UsbThroughPyVisa(simulated.DemoThroughPyVisa):
    def open_other(self):
        self.instrument.close()
        self.instrument = self.manager.open_resource(WITH_INTERRUPT_ENDPOINT)
        self.instrument.write("*CLS;*ESE 0;*SRE 0")

    def test_finds_instruments(self):
        self.assertEqual(sorted(self.manager.list_resources()),
                         [WITH_INTERRUPT_ENDPOINT, simulated.ADDRESS])
        self.assertEqual(self.manager.list_resources("GPIB?*"), ())

    def test_status_byte_and_service_request(self):
        self.open_other()
        super().test_status_byte_and_service_request()

    def test_handler_is_called(self):
        self.open_other()
        seen = []
        handle = self.instrument.wrap_handler(lambda resource, event, user: seen.append(event))
        user = self.instrument.install_handler(EventType.service_request, handle)
        self.instrument.enable_event(EventType.service_request, EventMechanism.handler)
        self.instrument.write("*ESE 32;*SRE 32;NONSENSE")
        # It comes on its own, by the interrupt endpoint.
        latest = time.monotonic() + 30
        while not seen and time.monotonic() < latest:
            time.sleep(0.01)
        self.assertEqual(len(seen), 1)
        self.instrument.uninstall_handler(EventType.service_request, handle, user)

    def test_service_needs_an_interrupt_endpoint(self):
        self.assert_visa_error(StatusCode.error_invalid_event, self.instrument.enable_event,
                               EventType.service_request, EventMechanism.queue)


if __name__ == "__main__":
    simulated.LIBRARY = sys.argv.pop()
    unittest.main()
