"""Drives the simulated instrument through PyVISA, as a script of a user's would.

Usage: pyvisa_test.py LIBRARY
"""

import pathlib
import sys
import tempfile
import time
import unittest

import pyvisa
from pyvisa.constants import (AccessModes, EventMechanism, EventType, InterfaceType,
                              ResourceAttribute, StatusCode)

ADDRESS = "USB0::0x5645::0x0040::20215678::0::INSTR"
LIBRARY = ""


class DemoThroughPyVisa(unittest.TestCase):
    def setUp(self):
        self.manager = pyvisa.ResourceManager(LIBRARY)
        self.visa = self.manager.visalib
        self.instrument = self.manager.open_resource(ADDRESS)
        self.instrument.write("*RST;*CLS")

    def tearDown(self):
        self.manager.close()

    def assert_visa_error(self, code, action, *arguments):
        with self.assertRaises(pyvisa.VisaIOError) as caught:
            action(*arguments)
        self.assertEqual(caught.exception.error_code, code)

    def test_finds_instruments(self):
        self.assertEqual(self.manager.list_resources(), (ADDRESS,))
        self.assertEqual(self.manager.list_resources("USB?*"), (ADDRESS,))
        self.assertEqual(self.manager.list_resources("GPIB?*"), ())
        info = self.manager.resource_info(ADDRESS)
        self.assertEqual(info.resource_class, "INSTR")
        self.assert_visa_error(StatusCode.error_resource_not_found, self.manager.open_resource,
                               ADDRESS.replace("20215678", "1"))

    def test_reads_long_replies_in_chunks(self):
        self.instrument.chunk_size = 16
        points = self.instrument.query("MEM:TABLE:POIN:ALL?").split()
        self.assertEqual(len(points), 40)
        self.assertEqual(points[-2], "20000000000")

    def test_termination_character(self):
        self.instrument.read_termination = ","
        self.instrument.write("*IDN?")
        self.assertEqual(self.instrument.read(), "Veltro")
        self.assertEqual(self.instrument.read(), "KLV-20G")

    def test_end_of_a_message(self):
        self.instrument.send_end = False
        self.instrument.write_raw(b"*OP")
        self.instrument.send_end = True
        self.instrument.write_raw(b"C?")
        self.assertEqual(self.instrument.read(), "1\n")

    def test_times_out(self):
        self.instrument.timeout = 50
        started = time.monotonic()
        self.assert_visa_error(StatusCode.error_timeout, self.instrument.read)
        self.assertGreaterEqual(time.monotonic() - started, 0.049)
        self.assertIn("-420", self.instrument.query("SYST:ERR?"))

    def test_status_byte_and_service_request(self):
        self.instrument.enable_event(EventType.service_request, EventMechanism.queue)
        self.instrument.write("*ESE 32;*SRE 32;NONSENSE")
        self.instrument.wait_on_event(EventType.service_request, 1000)
        self.assertEqual(self.instrument.read_stb(), 0x64)
        self.instrument.write("*IDN?")
        self.assertEqual(self.instrument.read_stb(), 0x74)
        self.instrument.disable_event(EventType.service_request, EventMechanism.queue)
        self.instrument.clear()

    def test_handler_is_called(self):
        seen = []
        handle = self.instrument.wrap_handler(lambda resource, event, user: seen.append(event))
        self.assert_visa_error(StatusCode.error_handler_not_installed,
                               self.instrument.enable_event, EventType.service_request,
                               EventMechanism.handler)
        user = self.instrument.install_handler(EventType.service_request, handle)
        self.instrument.enable_event(EventType.service_request, EventMechanism.handler)
        self.instrument.write("*ESE 32;*SRE 32;NONSENSE")
        self.assertEqual(len(seen), 1)
        self.instrument.uninstall_handler(EventType.service_request, handle, user)
        self.instrument.write("*CLS")
        self.instrument.write("NONSENSE")
        self.assertEqual(len(seen), 1)

    def test_reads_asynchronously(self):
        waits = (EventType.io_completion, EventMechanism.queue)
        self.assert_visa_error(StatusCode.error_not_enabled, self.instrument.wait_on_event,
                               EventType.io_completion, 5)
        self.instrument.enable_event(*waits)
        self.assert_visa_error(StatusCode.error_timeout, self.instrument.wait_on_event,
                               EventType.io_completion, 5)
        self.instrument.write("*OPC?")
        self.visa.discard_events(self.instrument.session, *waits)
        self.assertEqual(self.visa.discard_events(self.instrument.session, *waits),
                         StatusCode.success_queue_already_empty)
        buffer, job, _ = self.visa.read_asynchronously(self.instrument.session, 64)
        response = self.instrument.wait_on_event(EventType.io_completion, 1000)
        event = response.event
        self.assertEqual((event.job_id, event.status, event.return_count), (job, 0, 2))
        self.assertEqual(buffer.value, b"1\n")

    def test_attributes(self):
        self.assertEqual(self.instrument.manufacturer_name, "Veltro")
        self.assertEqual(self.instrument.model_name, "KLV-20G")
        self.assertEqual(self.instrument.serial_number, "20215678")
        self.assertEqual(self.instrument.timeout, 2000)
        self.assertEqual(self.instrument.resource_name, ADDRESS)
        self.assertEqual(self.instrument.interface_type, InterfaceType.usb)
        self.assertEqual(self.instrument.lock_state, AccessModes.no_lock)
        for attribute, code in ((ResourceAttribute.model_name, StatusCode.error_attribute_read_only),
                                (ResourceAttribute.termchar_enabled,
                                 StatusCode.error_nonsupported_attribute_state),
                                (0x12345678, StatusCode.error_nonsupported_attribute)):
            self.assert_visa_error(code, self.visa.set_attribute, self.instrument.session,
                                   attribute, 7)
        self.assertIn("time-out", self.visa.status_description(
            self.instrument.session, StatusCode.error_timeout)[0])

    def test_files(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "message.txt")
            path.write_text("FREQ 3 GHZ;FREQ?\n")
            name = str(path).encode()
            self.assertEqual(self.visa.write_from_file(self.instrument.session, name, 100)[0].value, 17)
            self.visa.read_to_file(self.instrument.session, name, 100)
            self.assertEqual(path.read_text(), "3000000000\n")
        self.assert_visa_error(StatusCode.error_file_access, self.visa.write_from_file,
                               self.instrument.session, name, 9)

    def test_lock(self):
        other = self.manager.open_resource(ADDRESS)
        with self.instrument.lock_context(requested_key="exclusive"):
            self.assert_visa_error(StatusCode.error_resource_locked, other.write, "*CLS")
        other.write("*CLS")


if __name__ == "__main__":
    LIBRARY = sys.argv.pop()
    unittest.main()
