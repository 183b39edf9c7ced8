#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Eight clients at once for a minute: no request waits for ever, none fails that may not, no result is
lost or doubled, and the server neither dies nor grows. ZORVA_STRESS_SECONDS makes it shorter or longer."""

import collections
import os
import random
import threading
import time

from cimxml import CimError
from openpegasus_case import *
from pegasus_server import resident_kibibytes

CLIENTS = 8
SECONDS = int(os.environ.get("ZORVA_STRESS_SECONDS", "60"))

# What the heap and the server's own threads scatter, once and over time. What a request of ours could
# leak is a path or an instance, 500 bytes and more, and a round is three requests on average.
GROWTH_ALLOWED_BYTES = 1024 * 1024
GROWTH_ALLOWED_BYTES_A_ROUND = 100


class Worker(threading.Thread):
    """One client. It has an element to itself, whose result only it touches, and so knows exactly what
    the server must answer; and shares another one with all the others."""

    def __init__(self, case, number, elements, shared, until):
        super().__init__()
        self.client = Client(case.server.url, timeout=30)
        self.number, self.own, self.shared, self.until = number, elements[number], shared, until
        self.random = random.Random(number)
        self.report = expected_results(sample(case.device_list))
        self.test = case.the_test()
        self.setting = case.client.names(SETTING)[0]
        self.counts = collections.Counter()
        self.failure = None

    def run(self):
        actions = [self.run_own, self.run_own, self.clear_own, self.discontinue_own, self.run_shared,
                   self.clear_shared, self.discontinue_shared, self.enumerate, self.follow]
        try:
            while time.monotonic() < self.until():
                action = self.random.choice(actions)
                action()
                self.counts[action.__name__] += 1
        except BaseException as error:
            self.failure = error
        finally:
            self.client.close()

    def invoke(self, method, element, *more):
        return self.client.invoke(self.test, method, [("SystemElement", element), *more])

    def run_anything(self, element):
        setting = self.random.choice([None, self.setting, self.test])
        answer = self.invoke("RunTest", element, *([("Setting", setting)] if setting else []))
        assert answer.value == "0", answer.value
        return answer.parameters["Result"]

    def run_own(self):
        result = self.run_anything(self.own)
        instance = self.client.get(result)
        assert instance["TestState"] == "2", instance["TestState"]
        assert instance["TestResults"] == self.report, instance["TestResults"]
        assert self.client.names(RESULT).count(result) == 1, "result lost or doubled"

    def clear_own(self):
        result = self.run_anything(self.own)
        answer = self.invoke("ClearResults", self.own)
        assert (answer.value, answer.parameters) == ("0", {}), vars(answer)
        assert result not in self.client.names(RESULT), "result not cleared"

    def discontinue_own(self):
        result = self.run_anything(self.own)
        answer = self.invoke("DiscontinueTest", self.own)
        assert answer.parameters == {"TestingStopped": "TRUE"}, vars(answer)
        assert self.client.get(result)["TestState"] == "7"

    def run_shared(self):
        # 1028: another client's run is in progress at this moment.
        answer = self.invoke("RunTest", self.shared, ("Setting", self.test))
        assert answer.value in ("0", "1028"), answer.value

    def clear_shared(self):
        assert self.invoke("ClearResults", self.shared).value == "0"

    def discontinue_shared(self):
        answer = self.invoke("DiscontinueTest", self.shared)
        assert answer.parameters == {"TestingStopped": "TRUE"}, vars(answer)

    def enumerate(self):
        keys = [instance.path for instance in self.client.instances(RESULT)]
        assert len(keys) == len(set(keys)), "result doubled"
        for instance in self.client.instances("CIM_DiagnosticTest"):
            assert instance["Name"] == "GetUsbDeviceInformation"

    def follow(self):
        found = self.client.associators(self.own, ResultClass="CIM_DiagnosticResult")
        keys = [instance.path for instance in found]
        assert len(keys) == len(set(keys)), "associated result doubled"
        assert self.client.associator_names(self.own, AssocClass=TEST_FOR_MSE) == [self.test]
        for name in self.client.names(RESULT_FOR_TEST):
            try:
                self.client.get(name)
            except CimError as error:
                # Cleared meanwhile by its client.
                assert error.code == 6, error


class Stress:
    # With a heap for every thread the process would grow for long without keeping anything.
    environment = {"MALLOC_ARENA_MAX": "1"}

    def more_elements(self, count):
        """Elements of one property's difference, loaded as an administrator would."""
        pattern = self.elements()[0].keys
        mof = self.server.root / "more.mof"
        with open(mof, "w") as file:
            for number in range(count):
                keys = {**pattern, "DeviceID": f"stress {number}"}
                file.write("instance of %s {%s};\n" % (ELEMENT, " ".join(
                    f'{name} = "{value}";' for name, value in keys.items())))
        self.server.run("cimmof", "-n", "root/kavex", mof)
        return [Path(ELEMENT, {**pattern, "DeviceID": f"stress {n}"}) for n in range(count)]

    def work(self, elements, shared, seconds):
        deadline = time.monotonic() + seconds
        workers = [Worker(self, number, elements, shared, lambda: deadline)
                   for number in range(CLIENTS)]
        for worker in workers:
            worker.start()
        for worker in workers:
            worker.join(seconds + 120)
            self.assertFalse(worker.is_alive(), "a request waits for ever")
        for worker in workers:
            if worker.failure is not None:
                raise worker.failure
        return sum((worker.counts for worker in workers), collections.Counter())

    def test_eight_clients_at_once(self):
        shared, *elements = self.more_elements(CLIENTS + 1)
        self.work(elements, shared, SECONDS / 4)
        server, provider = self.server.process_id(), self.server.provider_process()
        before = resident_kibibytes(provider)
        counts = self.work(elements, shared, SECONDS)
        growth = resident_kibibytes(provider) - before
        print(f"{sum(counts.values())} rounds {dict(counts)}; {before} KiB resident, {growth:+} after")
        self.assertEqual((self.server.process_id(), self.server.provider_process()),
                         (server, provider))
        self.assertLess(growth * 1024, GROWTH_ALLOWED_BYTES +
                        GROWTH_ALLOWED_BYTES_A_ROUND * sum(counts.values()))
        self.assertEqual(len(counts), 8)
        # Nothing is in the way of an orderly end.
        for element in (shared, *elements):
            self.client.invoke(self.the_test(), "ClearResults", [("SystemElement", element)])
        self.assertEqual(self.client.names(RESULT), [])
        self.server.stop()


in_both_places(globals(), Stress)

if __name__ == "__main__":
    main()
