"""Loads the library for real instruments as a PyVISA script would; none need be plugged in.

Usage: pyvisa_test.py LIBRARY
"""

import sys
import unittest

import pyvisa
from pyvisa.constants import StatusCode

LIBRARY = ""
# With and without a serial number; the board is one that no computer has.
NAMES = ("USB999::0x5645::0x0001::20215678::INSTR", "USB999::0x5645::0x0001::::INSTR")


class UsbtmcThroughPyVisa(unittest.TestCase):
    def setUp(self):
        self.manager = pyvisa.ResourceManager(LIBRARY)

    def tearDown(self):
        self.manager.close()

    def assert_visa_error(self, code, action, *arguments):
        with self.assertRaises(pyvisa.VisaIOError) as caught:
            action(*arguments)
        self.assertEqual(caught.exception.error_code, code)

    def test_searches(self):
        for found in self.manager.list_resources():
            self.assertTrue(found.startswith("USB"))
        self.assertEqual(self.manager.list_resources("USB999?*"), ())
        self.assert_visa_error(StatusCode.error_invalid_expression, self.manager.list_resources,
                               "USB[")

    def test_knows_names(self):
        for name in NAMES:
            self.assertEqual(self.manager.resource_info(name).resource_class, "INSTR")
            self.assert_visa_error(StatusCode.error_resource_not_found,
                                   self.manager.open_resource, name)
        self.assert_visa_error(StatusCode.error_invalid_resource_name,
                               self.manager.open_resource, "GPIB0::5::INSTR")


if __name__ == "__main__":
    LIBRARY = sys.argv.pop()
    unittest.main()
