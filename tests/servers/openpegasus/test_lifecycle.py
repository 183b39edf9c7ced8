#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Loading, unloading and stopping, and a device list whose reading blocks."""

import contextlib
import os
import pathlib
import signal
import threading
import unittest

from cimxml import CimError
from openpegasus_case import *

MODULE = "ZORVA_UsbHc_DiagProviderModule"

# For HoldingProvider.cpp.
HOLDING_REGISTRATION = """
instance of PG_ProviderModule {
    Name = "HoldingModule"; Vendor = "tests"; Version = "1"; Location = "HoldingProvider";
    InterfaceType = "C++Default"; InterfaceVersion = "2.6.0"; UserContext = 5;
};
instance of PG_Provider { ProviderModuleName = "HoldingModule"; Name = "HoldingProvider"; };
instance of PG_ProviderCapabilities {
    ProviderModuleName = "HoldingModule"; ProviderName = "HoldingProvider"; CapabilityID = "System";
    ClassName = "QUIRVO_ComputerSystem"; Namespaces = { "root/kavex" }; ProviderType = { 2 };
};
"""


class Lifecycle:
    """A fresh server for each test."""

    setUpClass = classmethod(lambda cls: None)

    def setUp(self):
        show_devices(sample(self.device_list))
        self.server = Server(INSTALLATION)
        self.addCleanup(self.server.close)
        # In seconds; the default is 30, and some cases wait for it.
        self.server.start(self.out_of_process, shutdownTimeout="5")
        self.server.register("--devices", sample(self.device_list))
        super().setUp()

    def test_disabled_module_refuses_and_serves_again_once_enabled(self):
        self.run_test(self.elements()[0])
        self.server.run("cimprovider", "-d", "-m", MODULE)
        self.assertIsNone(self.server.provider_process())
        with self.assertRaises(CimError) as caught:
            self.the_test()
        self.assertEqual(caught.exception.code, 7)
        self.server.run("cimprovider", "-e", "-m", MODULE)
        # A module that is loaded anew has an empty result table.
        self.assertEqual(self.client.names(RESULT), [])
        self.assertEqual(self.run_test(self.elements()[0]).value, "0")
        self.assertEqual(len(self.client.names(RESULT)), 1)

    def test_disable_and_enable_over_and_over(self):
        for _ in range(10):
            self.run_test(self.elements()[0])
            self.server.run("cimprovider", "-d", "-m", MODULE)
            self.server.run("cimprovider", "-e", "-m", MODULE)
        self.assertEqual(self.client.names(RESULT), [])

    def test_removed_module_leaves_the_server_serving_others(self):
        self.run_test(self.elements()[0])
        self.server.run("cimprovider", "-r", "-m", MODULE)
        self.assertIsNone(self.server.provider_process())
        self.assertTrue(self.elements())
        # Without a provider the class belongs to the repository, which has no instance of it.
        self.assertEqual(self.client.names(TEST), [])

    def test_terminate_signal_ends_the_server(self):
        self.run_test(self.elements()[0])
        self.assertIsNotNone(self.server.provider_process())
        os.kill(self.server.process_id(), signal.SIGTERM)
        wait_for(lambda: not self.server.is_running(), "the server has ended", 60)
        wait_for(lambda: self.server.provider_process() is None, "the provider's process has ended")
        log = (self.server.working_directory / "ZORVA_UsbHcProv.log").read_bytes()
        self.assertTrue(log.endswith(b"In terminate provider call\n"))

    def test_server_stopped_and_started_serves_again(self):
        self.run_test(self.elements()[0])
        self.server.stop()
        self.server.start(self.out_of_process)
        self.client.close()
        self.assertEqual(self.client.names(RESULT), [])
        self.assertEqual(self.run_test(self.elements()[0]).value, "0")

    def block_a_run(self):
        """A list that is a pipe without a writer, and a run that waits for it. Returns the thread
        and a list that receives the answer."""
        DEVICE_LIST.unlink()
        os.mkfifo(DEVICE_LIST)
        self.addCleanup(DEVICE_LIST.unlink)
        element, answers = self.elements()[0], []

        def run():
            client = Client(self.server.url, timeout=120)
            try:
                answers.append(client.invoke(test, "RunTest", [("SystemElement", element)]))
            except Exception as error:  # the server may be stopped meanwhile
                answers.append(error)
            finally:
                client.close()

        test = self.the_test()
        thread = threading.Thread(target=run)
        thread.start()
        self.addCleanup(thread.join)
        wait_for(self.someone_opens_the_list, "the run has begun to read")
        return thread, answers

    def someone_opens_the_list(self):
        """Whether a thread of the provider's process waits in the kernel for a pipe's other end."""
        process = self.server.provider_process()
        for task in pathlib.Path(f"/proc/{process}/task").iterdir():
            try:
                # Number of the system call, then its arguments: open (2) and openat (257) of x86_64.
                call = (task / "syscall").read_text().split()[0]
            except OSError:
                continue
            if call in ("2", "257"):
                return True
        return False

    def test_blocked_list_does_not_keep_others_from_their_answers(self):
        thread, answers = self.block_a_run()
        other = Client(self.server.url, timeout=20)
        self.addCleanup(other.close)
        self.assertTrue(other.names(ELEMENT))
        self.assertTrue(other.names(SYSTEM))
        self.assertEqual(answers, [])
        # Somebody writes at last: the run goes on from there.
        DEVICE_LIST.write_bytes(sample("root-hub-alone.txt").read_bytes())
        thread.join(60)
        self.assertEqual(answers[0].value, "0")
        self.assertEqual(self.client.get(answers[0].parameters["Result"])["TestResults"],
                         expected_results(sample("root-hub-alone.txt")))

    def ends_though_a_list_blocks(self, end):
        thread, _ = self.block_a_run()
        server, provider = self.server.process_id(), self.server.provider_process()
        end(server)
        for process in (server, provider):
            wait_for(lambda: not is_alive(process), f"process {process} has ended", 90)
        self.assertFalse(self.server.is_running())
        thread.join(60)
        self.assertFalse(thread.is_alive())

    def test_blocked_list_does_not_keep_the_server_from_stopping(self):
        self.ends_though_a_list_blocks(
            lambda server: self.server.run("cimserver", "-s", check=False))

    def test_blocked_list_does_not_withstand_a_terminate_signal(self):
        self.ends_though_a_list_blocks(lambda server: os.kill(server, signal.SIGTERM))

    def hold_readers(self):
        """A reader of each kind, each inside a call back of the library into the server. Returns the
        threads and a list that receives their answers."""
        self.register_holding_provider()
        test, element = self.the_test(), self.elements()[0]
        operations = [
            lambda client: client.names(TEST),
            lambda client: client.instances(TEST),
            lambda client: client.get(test),
            lambda client: client.names(TEST_FOR_MSE),
            lambda client: client.associator_names(test),
            lambda client: client.references(element),
        ]
        threads, answers = [], []
        for number, operation in enumerate(operations, 1):
            hold, held = (self.server.working_directory / f"{word}-{number}" for word in ("hold", "held"))
            hold.touch()
            thread = threading.Thread(target=self.read, args=(operation, answers))
            thread.start()
            self.addCleanup(thread.join)
            self.addCleanup(held.unlink, missing_ok=True)
            wait_for(held.exists, f"reader {number} is inside a call back")
            threads.append(thread)
        return threads, answers

    def read(self, operation, answers):
        client = Client(self.server.url, timeout=120)
        try:
            answers.append(operation(client))
        except Exception as error:  # refused, or the server is stopped meanwhile
            answers.append(error)
        finally:
            client.close()

    def let_readers_go_on(self):
        for held in self.server.working_directory.glob("held-*"):
            held.unlink()

    def register_holding_provider(self):
        library = build_dir() / "lib/openpegasus/libHoldingProvider.so"
        (self.server.home / "lib" / library.name).symlink_to(library)
        registration = self.server.root / "holding.mof"
        registration.write_text(HOLDING_REGISTRATION)
        self.server.run("cimmof", "-n", "root/PG_InterOp", registration)

    def test_reader_in_a_call_back_is_answered_though_a_list_blocks(self):
        readers, answers = self.hold_readers()
        self.block_a_run()
        self.assertEqual(answers, [])
        self.let_readers_go_on()
        for reader in readers:
            reader.join(60)
        self.assertEqual([str(answer) for answer in answers], len(readers) * [
            "1 CIM_ERR_FAILED: the provider is still at work on an earlier request"])
        DEVICE_LIST.write_bytes(sample("root-hub-alone.txt").read_bytes())

    def test_readers_in_a_call_back_do_not_keep_the_server_from_stopping(self):
        readers, _ = self.hold_readers()
        self.ends_though_a_list_blocks(self.stop_with_readers)
        for reader in readers:
            reader.join(60)
            self.assertFalse(reader.is_alive())

    def stop_with_readers(self, _):
        self.let_readers_go_on()
        self.server.run("cimserver", "-s", check=False)

    def test_run_that_takes_too_long_is_refused_and_goes_on(self):
        thread, answers = self.block_a_run()
        # Who asks the provider meanwhile waits no longer than the run itself.
        with self.assertRaises(CimError) as caught:
            self.client.names(RESULT)
        self.assertEqual((caught.exception.code, caught.exception.text),
                         (1, "CIM_ERR_FAILED: the provider is still at work on an earlier request"))
        thread.join(60)
        self.assertEqual((answers[0].code, answers[0].text),
                         (1, "CIM_ERR_FAILED: the method is still at work, so that its answer cannot "
                             "be waited for: reading the list of USB devices may be blocked"))
        DEVICE_LIST.write_bytes(sample("root-hub-alone.txt").read_bytes())
        wait_for(lambda: self.client.instances(RESULT)[0]["TestState"] == "2", "the run has ended", 60)
        self.assertEqual(self.client.instances(RESULT)[0]["TestResults"],
                         expected_results(sample("root-hub-alone.txt")))
        # The module can be disabled and enabled as ever.
        self.server.run("cimprovider", "-d", "-m", MODULE)
        self.server.run("cimprovider", "-e", "-m", MODULE)
        self.assertEqual(self.client.get(self.the_test())["Name"], "GetUsbDeviceInformation")

    def test_module_disabled_while_a_list_blocks_serves_again(self):
        thread, _ = self.block_a_run()
        thread.join(60)
        self.server.run("cimprovider", "-d", "-m", MODULE)
        # The run ends now, unless it ended with an agent that ended with its module.
        with contextlib.suppress(OSError):
            os.close(os.open(DEVICE_LIST, os.O_WRONLY | os.O_NONBLOCK))
        self.server.run("cimprovider", "-e", "-m", MODULE)
        DEVICE_LIST.unlink()
        show_devices(sample(self.device_list))
        self.assertEqual(self.run_test(self.elements()[0]).value, "0")


def is_alive(process):
    try:
        return pathlib.Path(f"/proc/{process}/stat").read_text().rsplit(")", 1)[1].split()[0] != "Z"
    except OSError:
        return False


@unittest.skipUnless(os.environ.get("ZORVA_LONG_TESTS"),
                     "takes 12 minutes; set ZORVA_LONG_TESTS=1 to run it")
class Idle:
    """The server looks for idle providers every few minutes and unloads what was idle that long."""

    def test_result_outlives_the_servers_patience(self):
        result = self.run_test(self.elements()[0]).parameters["Result"]
        process = self.server.provider_process()
        self.client.close()
        threading.Event().wait(12 * 60)
        self.assertEqual(self.server.provider_process(), process)
        self.assertEqual(self.client.get(result)["TestState"], "2")


in_both_places(globals(), Lifecycle)
in_both_places(globals(), Idle, "Idle")

if __name__ == "__main__":
    main()
