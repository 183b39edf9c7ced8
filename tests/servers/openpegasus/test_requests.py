#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The requests of clients, answered by the library inside a real OpenPegasus."""

from cimxml import CimError, MethodAnswer
from openpegasus_case import *


class Requests:
    def assert_status(self, code, text, request, *arguments):
        with self.assertRaises(CimError) as caught:
            request(*arguments)
        self.assertEqual((caught.exception.code, caught.exception.text), (code, text))

    def test_the_one_test_is_enumerated_and_fetched(self):
        names = self.client.names(TEST)
        self.assertEqual([name.keys["Name"] for name in names], ["GetUsbDeviceInformation"])
        enumerated = self.client.instances(TEST)
        self.assertEqual([instance.path for instance in enumerated], names)
        self.assertEqual(self.client.get(names[0]).properties, enumerated[0].properties)

    def test_superclass_enumeration_reaches_the_provider(self):
        self.assertEqual(self.client.names("CIM_DiagnosticTest"), self.client.names(TEST))
        self.assertIn(TEST, [i.class_name for i in self.client.instances("CIM_Service")])

    def test_report_of_a_run_arrives_whole(self):
        answer = self.run_test(self.elements()[0])
        self.assertEqual(answer.value, "0")
        result = self.client.get(answer.parameters["Result"])
        self.assertEqual(result["TestState"], "2")
        self.assertEqual(result["TestResults"], expected_results(sample(self.device_list)))

    def test_second_run_replaces_the_result(self):
        element = self.elements()[0]
        first = self.run_test(element).parameters["Result"]
        second = self.run_test(element).parameters["Result"]
        self.assertEqual(first, second)
        self.assertEqual(self.client.names(RESULT).count(first), 1)

    def test_each_element_has_its_own_result_until_cleared(self):
        self.clear_all()
        self.assertEqual(self.client.names(RESULT), [])
        elements = self.elements()
        for element in elements:
            self.run_test(element)
        self.assertEqual(sorted(name.keys["ExecutionID"] for name in self.client.names(RESULT)),
                         [element.keys["DeviceID"] for element in elements])
        answer = self.client.invoke(self.the_test(), "ClearResults",
                                    [("SystemElement", elements[0])])
        self.assertEqual((answer.value, answer.parameters), ("0", {}))
        self.assertEqual([name.keys["ExecutionID"] for name in self.client.names(RESULT)],
                         [element.keys["DeviceID"] for element in elements[1:]])

    def test_every_enumerated_instance_can_be_fetched(self):
        self.run_test(self.elements()[0])
        for class_name in SERVED:
            instances = self.client.instances(class_name)
            self.assertEqual([i.path for i in instances], self.client.names(class_name))
            self.assertTrue(instances, class_name)
            for instance in instances:
                self.assertEqual(self.client.get(instance.path).properties, instance.properties)

    def test_association_is_found_by_reference_keys_too(self):
        self.run_test(self.elements()[0])
        for class_name in ASSOCIATIONS:
            for instance in self.client.instances(class_name):
                ends = {name: value for name, value in instance.properties.items()
                        if isinstance(value, Path)}
                self.assertEqual(len(ends), 2)
                fetched = self.client.get(Path(class_name, ends))
                self.assertEqual(fetched.properties, instance.properties)

    def test_unknown_instances_are_not_found(self):
        self.run_test(self.elements()[0])
        test = self.the_test()
        self.assert_status(6, "CIM_ERR_NOT_FOUND: bad reference: Invalid Reference",
                           self.client.get, Path(TEST, {**test.keys, "Name": "Other"}))
        result = self.client.names(RESULT)[0]
        self.assert_status(
            6, "CIM_ERR_NOT_FOUND: bad reference: "
            "ZORVA_DiagnosticResultbuilder - Invalid Reference",
            self.client.get, Path(RESULT, {**result.keys, "ExecutionID": "none"}))
        for class_name in ASSOCIATIONS:
            keys = self.client.names(class_name)[0].keys
            name = next(iter(keys))
            for other in ("rubbish", "A.B=\"c\"", Path("A", {"B": "c"})):
                self.assert_status(6, "CIM_ERR_NOT_FOUND: bad reference: Invalid Reference",
                                   self.client.get, Path(class_name, {**keys, name: other}))

    def test_associations_are_followed_from_every_end(self):
        self.clear_all()
        element = self.elements()[0]
        result = self.run_test(element).parameters["Result"]
        test = self.the_test()
        self.assertCountEqual(self.client.associator_names(test),
                              [result, *self.client.names(SOFTWARE), *self.elements()])
        self.assertCountEqual(self.client.associator_names(result), [test, *self.elements()])
        self.assertCountEqual(self.client.associator_names(element), [test, result])
        self.assertEqual(self.client.associator_names(self.client.names(SOFTWARE)[0]), [test])
        self.assertCountEqual([name.class_name for name in self.client.reference_names(element)],
                              [RESULT_FOR_MSE, TEST_FOR_MSE])
        self.assertCountEqual([i.class_name for i in self.client.associators(result)],
                              [TEST] + [ELEMENT] * len(self.elements()))
        self.assertCountEqual([i.path for i in self.client.references(result)],
                              self.client.reference_names(result))
        self.assertEqual(
            self.client.associators(element, AssocClass=RESULT_FOR_MSE)[0].properties,
            self.client.get(result).properties)

    def test_association_filters(self):
        self.clear_all()
        element = self.elements()[0]
        result = self.run_test(element).parameters["Result"]
        test = self.the_test()
        names = self.client.associator_names
        self.assertEqual(names(element, AssocClass=TEST_FOR_MSE), [test])
        self.assertEqual(names(element, AssocClass="CIM_DiagnosticTestForMSE"), [test])
        self.assertEqual(names(element, ResultClass=RESULT), [result])
        self.assertEqual(names(element, ResultClass="CIM_DiagnosticService"), [test])
        self.assertEqual(names(element, ResultClass=SOFTWARE), [])
        self.assertEqual(names(element, Role="Dependent"), [test])
        self.assertEqual(names(element, Role="systemelement"), [result])
        self.assertEqual(names(element, ResultRole="Antecedent"), [test])
        self.assertEqual(names(element, Role="Antecedent"), [])
        self.assertEqual(names(element, Role="Bogus"), [])
        self.assertEqual(names(element, ResultRole="Bogus"), [])
        self.assertEqual(len(self.client.reference_names(result, Role="Result")),
                         len(self.elements()))
        self.assertEqual(len(self.client.reference_names(result, ResultClass=RESULT_FOR_TEST)), 1)
        self.assertEqual(self.client.references(result, Role="Bogus"), [])
        self.assertEqual(names(Path(RESULT, {**result.keys, "ExecutionID": "none"})), [])

    def test_bare_and_complete_references_run_the_test(self):
        # wbemcli sends host and namespace with a reference, cimcli neither.
        test = self.wbemcli_path(self.the_test())
        element = self.wbemcli_path(self.elements()[0])
        with_host = self.server.run("wbemcli", "cm",
                                    f"http://127.0.0.1:{self.server.port}/root/kavex:{test}",
                                    f"RunTest.SystemElement={element}")
        self.assertIn("RunTest: 0", with_host.stdout)
        self.assertIn(f"Result (reference): root/kavex:{RESULT}.", with_host.stdout)
        bare = self.server.run("cimcli", "im", test, "RunTest", f"SystemElement={element}",
                               "-n", "root/kavex", "-l", f"localhost:{self.server.port}")
        self.assertRegex(bare.stdout, r"(?m)^Return Value= 0$")

    @staticmethod
    def wbemcli_path(path):
        keys = ",".join(f'{name}="{value}"' for name, value in path.keys.items())
        return f"{path.class_name}.{keys}"

    def test_wbemcli_fetches_what_it_enumerates(self):
        self.run_test(self.elements()[0])
        for class_name in (TEST, RESULT):
            url = f"http://127.0.0.1:{self.server.port}/root/kavex:"
            names = self.server.run("wbemcli", "ein", url + class_name).stdout.splitlines()
            self.assertEqual(len(names), len(self.client.names(class_name)))
            for name in names:
                name = name[name.index(class_name):]
                self.assertIn(class_name, self.server.run("wbemcli", "gi", url + name).stdout)

    def test_cimcli_follows_the_associations(self):
        result = self.wbemcli_path(self.run_test(self.elements()[0]).parameters["Result"])
        for operation, found in (("an", TEST), ("a", TEST), ("rn", RESULT_FOR_TEST),
                                 ("r", RESULT_FOR_TEST), ("gi", RESULT)):
            filters = [] if operation == "gi" else ["-rc", found]
            said = self.server.run("cimcli", operation, result, *filters, "-n", "root/kavex",
                                   "-l", f"localhost:{self.server.port}").stdout
            self.assertIn(found, said, operation)

    def test_usbhcdiag_reports_through_the_server(self):
        self.clear_all()
        device = self.elements()[0].keys["DeviceID"]
        done = self.server.run("usbhcdiag", "run", "--server", self.server.url, "--element", device)
        self.assertEqual(done.stdout.split("\n")[:-1], expected_results(sample(self.device_list)))
        self.assertIn(device, self.server.run("usbhcdiag", "results", "--server",
                                              self.server.url).stdout)
        self.server.run("usbhcdiag", "clear", "--server", self.server.url)
        self.assertEqual(self.client.names(RESULT), [])

    def test_settings_are_copied_into_the_result(self):
        setting = self.client.names(SETTING)[0]
        answer = self.run_test(self.elements()[0], ("Setting", setting))
        result, given = self.client.get(answer.parameters["Result"]), self.client.get(setting)
        for name in ("PercentOfTestCoverage", "TestWarningLevel", "ReportSoftErrors",
                     "ReportStatusMessages", "LoopControl", "LoopControlParameter"):
            self.assertEqual(result[name], given[name], name)

    def test_setting_that_is_no_setting_runs_the_test(self):
        element = self.elements()[0]
        own_result = self.run_test(element).parameters["Result"]
        for setting in (self.the_test(), own_result, Path(SETTING, {"InstanceID": "none"}),
                        Path("NoSuchClass", {"A": "b"}), "text"):
            answer = self.run_test(element, ("Setting", setting))
            self.assertEqual(answer.value, "0", setting)
            self.assertEqual(self.client.get(answer.parameters["Result"])["TestState"], "2")

    def test_system_element_that_is_none(self):
        test = self.the_test()
        before = self.client.names(RESULT)
        run = self.client.invoke
        self.assertEqual(run(test, "RunTest").value, "1044")
        self.assertEqual(run(test, "RunTest", [("SystemElement", "text")]).value, "1044")
        self.assertEqual(run(test, "RunTest", [
            ("SystemElement", Path(ELEMENT, {"DeviceID": "none"}))]).value, "1044")
        self.assert_status(12, "CIM_ERR_NO_SUCH_PROPERTY: no such property: DeviceID",
                           run, test, "RunTest", [("SystemElement", test)])
        self.assertEqual(run(test, "ClearResults").value, "1050")
        self.assertEqual(run(test, "ClearResults", [("SystemElement", "text")]).value, "1040")
        self.assertEqual(self.client.names(RESULT), before)

    def test_discontinue_marks_the_result_and_gives_no_value(self):
        element = self.elements()[0]
        result = self.run_test(element).parameters["Result"]
        answer = self.client.invoke(self.the_test(), "DiscontinueTest",
                                    [("SystemElement", element)])
        self.assertEqual((answer.value, answer.parameters), (None, {"TestingStopped": "TRUE"}))
        self.assertEqual(self.client.get(result)["TestState"], "7")

    def test_refused_operations(self):
        test = self.the_test()
        for method in ("StartService", "StopService"):
            self.assert_status(
                7, f"CIM_ERR_NOT_SUPPORTED: ZORVA_UsbHc_DiagProvider::{method}",
                self.client.invoke, test, method)
        self.assert_status(7, "CIM_ERR_NOT_SUPPORTED: ZORVA_UsbHc_DiagProvider::deleteInstance",
                           self.client.delete, test)
        properties = ('<PROPERTY NAME="Name" TYPE="string"><VALUE>x</VALUE></PROPERTY>')
        self.assert_status(
            7, "CIM_ERR_NOT_SUPPORTED: ZORVA_UsbHc_DiagProvider::createInstance",
            self.client.intrinsic, "CreateInstance",
            [("NewInstance", f'<INSTANCE CLASSNAME="{TEST}">{properties}</INSTANCE>')])
        self.assert_status(
            7, "CIM_ERR_NOT_SUPPORTED: ZORVA_UsbHc_DiagProvider::modifyInstance",
            self.client.intrinsic, "ModifyInstance",
            [("ModifiedInstance", f"<VALUE.NAMEDINSTANCE>{test.xml()}"
              f'<INSTANCE CLASSNAME="{TEST}">{properties}</INSTANCE></VALUE.NAMEDINSTANCE>')])

    def test_unknown_method_completes_without_a_value(self):
        answer = self.client.invoke(self.the_test(), "NoSuchMethod")
        self.assertEqual((answer.value, answer.parameters), (None, {}))

    def test_missing_list_passes_and_reports_nothing(self):
        self.addCleanup(show_devices, sample(self.device_list))
        DEVICE_LIST.unlink()
        result = self.client.get(self.run_test(self.elements()[0]).parameters["Result"])
        self.assertEqual((result["TestState"], result["TestResults"]), ("2", []))


in_both_places(globals(), Requests)

if __name__ == "__main__":
    main()
