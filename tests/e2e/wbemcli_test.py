#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""cimhost with the provider library, driven by a CIM client of somebody else's making."""
import os
import shutil
import socket
import tempfile
import unittest

import hosting
from hosting import OHCI_TREE, CimHost, wbemcli

HOST_NAME = socket.gethostname().split(".")[0]
TEST = ('ZORVA_UsbHc_DiagTest.CreationClassName="ZORVA_UsbHc_DiagTest",Name="GetUsbDeviceInformation",'
        'SystemCreationClassName="QUIRVO_ComputerSystem",SystemName="%s"' % HOST_NAME)
DEVICE = "0000:00:02.0"  # of the root hub of samples/ohci-tree.txt
ELEMENT = ('ZORVA_UsbHc.CreationClassName="ZORVA_UsbHc",DeviceID="%s",'
           'SystemCreationClassName="QUIRVO_ComputerSystem",SystemName="%s"' % (DEVICE, HOST_NAME))
RESULT = ('ZORVA_UsbHc_DiagResult.DiagnosticCreationClassName="ZORVA_UsbHc_DiagTest",'
          'DiagnosticName="GetUsbDeviceInformation",DiagSystemCreationClassName="QUIRVO_ComputerSystem",'
          'DiagSystemName="%s",ExecutionID="%s"' % (HOST_NAME, DEVICE))
SOFTWARE_CLASS = "ZORVA_UsbHc_TestSoftware"

# Each class that the library serves, and the DMTF class above it.
SERVED = {
    "ZORVA_UsbHc_DiagTest": "CIM_DiagnosticTest",
    "ZORVA_UsbHc_DiagResult": "CIM_DiagnosticResult",
    "ZORVA_UsbHc_DiagResultForMSE": "CIM_DiagnosticResultForMSE",
    "ZORVA_UsbHc_DiagResultForTest": "CIM_DiagnosticResultForTest",
    "ZORVA_UsbHc_DiagTestForMSE": "CIM_DiagnosticTestForMSE",
    "ZORVA_UsbHc_DiagTestSoftwareAssoc": "CIM_DiagnosticTestSoftware",
}


def in_quotes(path):
    """A path as it stands, quoted, in a key of another path."""
    return '"%s"' % path.replace("\\", "\\\\").replace('"', '\\"')


def association(class_name, **ends):
    """The path of an association instance as wbemcli prints it: keys that hold path text."""
    return class_name + "." + ",".join("%s=%s" % (role, in_quotes(path))
                                       for role, path in ends.items())


class WbemcliTest(unittest.TestCase):
    def setUp(self):
        self.host = CimHost("--devices", OHCI_TREE)
        self.addCleanup(self.host.__exit__)

    def ask(self, operation, path, *arguments, options=()):
        return wbemcli(operation, self.host, path, *arguments, options=options)

    def invoke(self, call, path=TEST):
        return self.ask("cm", path, call)

    def run_test(self, element=ELEMENT, setting=""):
        return self.invoke("RunTest.%sSystemElement=%s" % (setting, element))

    def software(self):
        return self.ask("ein", SOFTWARE_CLASS).paths[0]

    def associations(self):
        """Every association instance that there is after one run."""
        return {
            "ZORVA_UsbHc_DiagResultForMSE":
                association("ZORVA_UsbHc_DiagResultForMSE", Result=RESULT, SystemElement=ELEMENT),
            "ZORVA_UsbHc_DiagResultForTest":
                association("ZORVA_UsbHc_DiagResultForTest", DiagnosticResult=RESULT,
                            DiagnosticTest=TEST),
            "ZORVA_UsbHc_DiagTestForMSE":
                association("ZORVA_UsbHc_DiagTestForMSE", Antecedent=TEST, Dependent=ELEMENT),
            "ZORVA_UsbHc_DiagTestSoftwareAssoc":
                association("ZORVA_UsbHc_DiagTestSoftwareAssoc", Antecedent=self.software(),
                            Dependent=TEST),
        }

    # Reading.

    def test_before_any_run_there_is_one_test_and_no_result(self):
        self.assertEqual(self.ask("ein", "ZORVA_UsbHc_DiagTest").paths, [TEST])
        self.assertEqual(self.ask("ein", "ZORVA_UsbHc").paths, [ELEMENT])
        for class_name in ("ZORVA_UsbHc_DiagResult", "ZORVA_UsbHc_DiagResultForMSE",
                           "ZORVA_UsbHc_DiagResultForTest"):
            answer = self.ask("ein", class_name)
            self.assertEqual((answer.status, answer.output.strip()), (0, ""), class_name)

    def test_names_of_every_class_are_found_under_its_dmtf_class_too(self):
        self.run_test()
        expected = {"ZORVA_UsbHc_DiagTest": TEST, "ZORVA_UsbHc_DiagResult": RESULT,
                    **self.associations()}
        for class_name, superclass in SERVED.items():
            for name in (class_name, superclass):
                self.assertEqual(self.ask("ein", name).paths, [expected[class_name]], name)
        self.assertEqual(self.ask("ein", "CIM_Service").paths, [TEST])
        everything = self.ask("ein", "CIM_ManagedElement").paths
        self.assertIn(TEST, everything)
        self.assertIn(ELEMENT, everything)
        self.assertNotIn(RESULT, everything, "a result is no managed element")

    def test_instances_of_every_class_are_found_under_its_dmtf_class_too(self):
        self.run_test()
        for class_name, superclass in SERVED.items():
            own = self.ask("ei", class_name, options=["-nl"])
            self.assertEqual(own.status, 0, own.error)
            inherited = self.ask("ei", superclass, options=["-nl"])
            self.assertEqual(own.properties, inherited.properties)
            self.assertTrue(own.properties, class_name)

    def test_every_instance_enumerated_can_be_fetched(self):
        self.run_test()
        for path in (TEST, RESULT, ELEMENT, self.software()):
            answer = self.ask("gi", path, options=["-nl"])
            self.assertEqual(answer.status, 0, answer.error)
            self.assertTrue(answer.properties)
        # wbemcli cannot be given a quoted path as a key, but a bare one, which it sends as a reference.
        for role_paths in (
                ("ZORVA_UsbHc_DiagResultForMSE", "Result", RESULT, "SystemElement", ELEMENT),
                ("ZORVA_UsbHc_DiagResultForTest", "DiagnosticResult", RESULT, "DiagnosticTest", TEST),
                ("ZORVA_UsbHc_DiagTestForMSE", "Antecedent", TEST, "Dependent", ELEMENT),
                ("ZORVA_UsbHc_DiagTestSoftwareAssoc", "Antecedent", self.software(),
                 "Dependent", TEST)):
            class_name, role1, path1, role2, path2 = role_paths
            path = "%s.%s=%s,%s=%s" % (class_name, role1, path1, role2, path2)
            answer = self.ask("gi", path, options=["-nl"])
            self.assertEqual(answer.status, 0, class_name + answer.error)
            self.assertEqual({role1, role2} - set(answer.properties), set(), class_name)

    def test_a_property_list_leaves_the_others_out(self):
        answer = self.ask("gi", TEST, "Caption,Characteristics", options=["-nl"])
        self.assertEqual(answer.properties,
                         {"Caption": "Usb SubSystem Information", "Characteristics": "2,5,8"})

    def test_one_property_can_be_fetched(self):
        self.assertEqual(self.ask("gp", TEST, "Status").output.strip(), "Unknown")
        self.assertEqual(self.ask("gp", TEST, "Nope").error,
                         "Cim: (12) CIM_ERR_NO_SUCH_PROPERTY: Nope")

    def test_classes_are_shown_with_their_methods(self):
        answer = self.ask("gcd", "ZORVA_UsbHc_DiagTest")
        self.assertEqual(answer.status, 0, answer.error)
        for name in ("RunTest", "ClearResults", "DiscontinueTest", "StartService", "StopService"):
            self.assertIn(name, answer.output)
        names = [line.rsplit(":", 1)[1] for line in self.ask("ecn", "").lines]
        self.assertLessEqual(set(SERVED) | set(SERVED.values()), set(names))

    # Running.

    def test_a_run_reports_every_device(self):
        answer = self.run_test()
        self.assertEqual(answer.status, 0, answer.error)
        self.assertIn("RunTest: 0, Result (reference): root/kavex:" + RESULT, answer.output)
        result = self.ask("gi", RESULT, options=["-nl"])
        properties = result.properties
        self.assertEqual(properties["TestState"], "2")
        self.assertEqual(properties["ExecutionID"], DEVICE)
        self.assertEqual(result.output.count("Product Name"), 6, "the devices of the sample")
        self.assertIn("Barometer", result.output)
        self.assertNotIn("00000000000000.000000:000", properties["TestStartTime"])

    def test_another_run_replaces_the_result(self):
        self.run_test()
        first = self.ask("gi", RESULT, options=["-nl"]).properties
        self.assertIn("RunTest: 0", self.run_test().output)
        self.assertEqual(self.ask("ein", "ZORVA_UsbHc_DiagResult").paths, [RESULT])
        second = self.ask("gi", RESULT, options=["-nl"]).properties
        self.assertGreater(second["TestStartTime"], first["TestCompletionTime"])

    def test_a_method_is_found_in_any_letter_case(self):
        self.assertIn("runtest: 0", self.invoke("runtest.SystemElement=" + ELEMENT).output)

    def test_the_settings_of_a_run_are_copied_into_its_result(self):
        setting = 'Setting=ZORVA_UsbHc_DiagSetting.InstanceID="ZORVA:UsbHcDefaultSetting",'
        self.assertIn("RunTest: 0", self.run_test(setting=setting).output)
        properties = self.ask("gi", RESULT, options=["-nl"]).properties
        self.assertEqual(
            {name: properties[name] for name in ("PercentOfTestCoverage", "ReportSoftErrors",
                                                 "LoopControl", "LoopControlParameter",
                                                 "TestWarningLevel")},
            {"PercentOfTestCoverage": "100", "ReportSoftErrors": "TRUE", "LoopControl": "3",
             "LoopControlParameter": "1", "TestWarningLevel": "3"})

    def test_a_setting_that_does_not_exist_counts_as_none(self):
        setting = 'Setting=ZORVA_UsbHc_DiagSetting.InstanceID="nobody",'
        self.assertIn("RunTest: 0", self.run_test(setting=setting).output)
        self.assertEqual(self.ask("gp", RESULT, "PercentOfTestCoverage").output.strip(), "0")

    def test_the_providers_own_instances_may_be_parameters(self):
        self.run_test()
        self.assertIn("RunTest: 0", self.run_test(setting="Setting=%s," % TEST).output)
        self.assertIn("RunTest: 0", self.run_test(setting="Setting=%s," % RESULT).output)

    def test_an_element_without_device_id_is_an_error(self):
        self.assertEqual(self.run_test(element=TEST).error,
                         "Cim: (12) CIM_ERR_NO_SUCH_PROPERTY: no such property: DeviceID")

    def test_an_unknown_element_has_a_code(self):
        self.assertIn("RunTest: 1044", self.run_test(element='ZORVA_UsbHc.DeviceID="nobody"').output)
        self.assertIn("RunTest: 1044", self.invoke("RunTest").output)

    # Clearing and stopping.

    def test_cleared_results_are_gone(self):
        self.run_test()
        self.assertIn("ClearResults: 0", self.invoke("ClearResults.SystemElement=" + ELEMENT).output)
        self.assertEqual(self.ask("ein", "ZORVA_UsbHc_DiagResult").output.strip(), "")
        self.assertEqual(
            self.ask("gi", RESULT).error,
            "Cim: (6) CIM_ERR_NOT_FOUND: bad reference: ZORVA_DiagnosticResultbuilder - Invalid "
            "Reference")
        self.assertIn("ClearResults: 0", self.invoke("ClearResults.SystemElement=" + ELEMENT).output)

    def test_clearing_needs_an_element(self):
        self.assertIn("ClearResults: 1050", self.invoke("ClearResults").output)

    def test_a_discontinued_test_is_marked_stopped(self):
        self.run_test()
        # The answer has no return value, which wbemcli refuses to print; "cmx" shows it as it came.
        answer = self.ask("cmx", TEST, "DiscontinueTest.SystemElement=" + ELEMENT)
        self.assertIn('<PARAMVALUE NAME="TestingStopped" PARAMTYPE="boolean">\n<VALUE>TRUE</VALUE>',
                      answer.output)
        self.assertNotIn("RETURNVALUE", answer.output)
        self.assertEqual(self.ask("gp", RESULT, "TestState").output.strip(), "7")
        self.assertEqual(self.invoke("DiscontinueTest").error,
                         "Cim: (1) CIM_ERR_FAILED: type mismatch")

    # Refusals.

    def test_what_the_provider_refuses_has_its_code_and_text(self):
        provider = "Cim: (7) CIM_ERR_NOT_SUPPORTED: ZORVA_UsbHc_DiagProvider::"
        for method in ("StartService", "StopService"):
            self.assertEqual(self.invoke(method).error, provider + method)
        self.assertEqual(self.ask("di", TEST).error, provider + "deleteInstance")
        self.assertEqual(self.ask("mi", TEST, 'Caption="x"').error, provider + "modifyInstance")
        keys = TEST.split(".", 1)[1]
        self.assertEqual(self.ask("ci", TEST, keys).error, provider + "createInstance")

    def test_unknown_things_have_their_codes(self):
        nobody = TEST.replace("GetUsbDeviceInformation", "Nobody")
        self.assertEqual(self.ask("gi", nobody).error,
                         "Cim: (6) CIM_ERR_NOT_FOUND: bad reference: Invalid Reference")
        self.assertEqual(self.ask("gi", 'ZORVA_UsbHc.DeviceID="nobody"').error,
                         'Cim: (6) CIM_ERR_NOT_FOUND: ZORVA_UsbHc.DeviceID="nobody"')
        self.assertEqual(self.ask("ein", "T_Nope").error, "Cim: (5) CIM_ERR_INVALID_CLASS: T_Nope")
        self.assertEqual(self.ask("gc", "T_Nope").error, "Cim: (6) CIM_ERR_NOT_FOUND: T_Nope")
        self.assertEqual(self.ask("ain", ELEMENT, options=["-ac", "T_Nope"]).error,
                         "Cim: (4) CIM_ERR_INVALID_PARAMETER: T_Nope")
        self.assertEqual(self.ask("ain", ELEMENT, options=["-arc", "T_Nope"]).error,
                         "Cim: (5) CIM_ERR_INVALID_CLASS: T_Nope")
        self.assertEqual(self.invoke("DoIt", ELEMENT).error,
                         "Cim: (16) CIM_ERR_METHOD_NOT_AVAILABLE: DoIt")
        answer = self.invoke("DoIt")
        self.assertEqual((answer.status, answer.output.strip()), (0, ""),
                         "the test class completes an unknown method without a value")

    def test_an_unknown_namespace_is_named(self):
        namespace, hosting.NAMESPACE = hosting.NAMESPACE, "root/nowhere"
        try:
            answer = self.ask("ein", "ZORVA_UsbHc_DiagTest")
        finally:
            hosting.NAMESPACE = namespace
        self.assertEqual(answer.error, "Cim: (3) CIM_ERR_INVALID_NAMESPACE: root/nowhere")

    # The repository.

    def test_settings_can_be_made_changed_and_deleted(self):
        path = 'ZORVA_UsbHc_DiagSetting.InstanceID="mine"'
        self.assertEqual(self.ask("ci", path, 'InstanceID="mine",QuickMode=true').status, 0)
        self.assertEqual(self.ask("gp", path, "QuickMode").output.strip(), "TRUE")
        self.assertEqual(self.ask("mi", path, "PercentOfTestCoverage=50").status, 0)
        self.assertEqual(self.ask("gp", path, "PercentOfTestCoverage").output.strip(), "50")
        self.assertIn("RunTest: 0", self.run_test(setting="Setting=%s," % path).output)
        self.assertEqual(self.ask("gp", RESULT, "QuickMode").output.strip(), "TRUE")
        self.assertEqual(self.ask("di", path).status, 0)
        self.assertEqual(self.ask("gi", path).error, "Cim: (6) CIM_ERR_NOT_FOUND: " + path)

    # Along the associations.

    def test_what_is_associated_is_found_from_every_end(self):
        self.run_test()
        software = self.software()
        ends = {
            "ZORVA_UsbHc_DiagResultForMSE": ("Result", RESULT, "SystemElement", ELEMENT),
            "ZORVA_UsbHc_DiagResultForTest": ("DiagnosticResult", RESULT, "DiagnosticTest", TEST),
            "ZORVA_UsbHc_DiagTestForMSE": ("Antecedent", TEST, "Dependent", ELEMENT),
            "ZORVA_UsbHc_DiagTestSoftwareAssoc": ("Antecedent", software, "Dependent", TEST),
        }
        links = self.associations()
        for class_name, (role1, path1, role2, path2) in ends.items():
            for near_role, near, far_role, far in ((role1, path1, role2, path2),
                                                   (role2, path2, role1, path1)):
                for name in (class_name, SERVED[class_name]):
                    along = ["-ac", name, "-ar", near_role, "-arr", far_role]
                    self.assertEqual(self.ask("ain", near, options=along).paths, [far], name)
                    found = self.ask("ai", near, options=["-nl", *along])
                    self.assertEqual(found.paths, [far])
                    self.assertEqual(self.ask("rin", near, options=["-arc", name]).paths,
                                     [links[class_name]], name)
                    found = self.ask("ri", near, options=["-nl", "-arc", name])
                    self.assertEqual(found.paths, [links[class_name]])
                    self.assertLessEqual({role1, role2}, set(found.properties))
                wrong = ["-ac", class_name, "-ar", far_role]
                self.assertEqual(self.ask("ain", near, options=wrong).output.strip(), "")

    def test_without_filters_every_association_is_followed(self):
        self.run_test()
        self.assertEqual(sorted(self.ask("ain", ELEMENT).paths), sorted([RESULT, TEST]))
        self.assertEqual(sorted(self.ask("ain", TEST).paths),
                         sorted([RESULT, ELEMENT, self.software()]))
        self.assertEqual(sorted(self.ask("rin", RESULT).paths),
                         sorted(self.associations()[name] for name in
                                ("ZORVA_UsbHc_DiagResultForMSE", "ZORVA_UsbHc_DiagResultForTest")))

    def test_result_classes_filter_what_is_found(self):
        self.run_test()
        for class_name, path in (("CIM_DiagnosticResult", RESULT), ("CIM_Service", TEST)):
            self.assertEqual(self.ask("ain", ELEMENT, options=["-arc", class_name]).paths, [path])
        self.assertEqual(self.ask("ain", ELEMENT, options=["-ar", "Bogus"]).output.strip(), "")

    def test_what_the_library_prints_does_not_reach_standard_output(self):
        self.run_test()
        self.assertEqual(self.host.stop(), (0, ""))
        self.assertIn("test code for usb host controller", self.host.stderr())


class OneKeyTest(unittest.TestCase):
    """Elements that are known by a single key, from MOF files of one's own."""

    def test_a_reference_with_one_key_runs_the_test(self):
        own = ('#pragma include ("%s/cimhost.mof")\n'
               '#pragma namespace ("root/kavex")\n'
               'class TEST_Element : CIM_ManagedSystemElement { [Key] string DeviceID; };\n'
               'instance of TEST_Element { DeviceID = "only key"; };\n' % hosting.MOF)
        folder = tempfile.mkdtemp(prefix="cimhost-")
        self.addCleanup(shutil.rmtree, folder)
        path = os.path.join(folder, "one-key.mof")
        with open(path, "w") as file:
            file.write(own)
        with CimHost("--mof", path, "--devices", OHCI_TREE) as host:
            answer = wbemcli("cm", host, TEST, 'RunTest.SystemElement=TEST_Element.DeviceID="only key"')
            self.assertIn("RunTest: 0", answer.output, answer.error)
            self.assertIn('ExecutionID="only key"', answer.output)
            results = wbemcli("ein", host, "CIM_DiagnosticResult").paths
            self.assertEqual(results, [RESULT.replace(DEVICE, "only key")])
            answer = wbemcli("cm", host, TEST,
                             'ClearResults.SystemElement=TEST_Element.DeviceID="only key"')
            self.assertIn("ClearResults: 0", answer.output)
            self.assertEqual(wbemcli("ein", host, "CIM_DiagnosticResult").output.strip(), "")


if __name__ == "__main__":
    hosting.main()
