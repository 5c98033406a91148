#!/usr/bin/env python3
"""The settings of docs/cluster.md are those of the clusters of the tests. Usage: cluster_test.py ROOT"""
import pathlib
import re
import sys
import unittest

import pages

ROOT = pathlib.Path(sys.argv[1])
SUPPORT = ROOT / "tests" / "support"
# A matter of the machines: where they are, how they trust and copy one another.
GALERA_OF_THE_MACHINES = {"bind-address", "default-storage-engine", "wsrep-cluster-address",
                          "wsrep-node-address", "wsrep-provider-options", "wsrep-sst-method"}
POSTGRESQL_OF_THE_MACHINES = {"listen_addresses", "wal_keep_size"}


def block(beginning):
    """The settings of the page that begin so."""
    text = (ROOT / "docs" / "cluster.md").read_text(encoding="utf-8")
    return next(block.code for block in pages.blocks(text) if block.code.startswith(beginning))


def settings(code):
    return dict(re.findall(r"^(\S+) = (.*)$", code, re.M))


class Cluster(unittest.TestCase):
    def setUp(self):
        self.script = (SUPPORT / "cluster").read_text(encoding="utf-8")

    def test_nodes_of_galera_are_set_alike(self):
        told = settings(block("[mariadbd]"))
        self.assertLess(GALERA_OF_THE_MACHINES, set(told))
        for name in set(told) - GALERA_OF_THE_MACHINES:
            self.assertRegex(self.script, rf"--{name}={re.escape(told[name])}\s")

    def test_haproxy_is_set_alike(self):
        part = (SUPPORT / "cluster_parts" / "haproxy_practice.cfg").read_text(encoding="utf-8")
        tried = [line for line in part.splitlines() if not line.lstrip().startswith("#")]
        told = block("defaults\n").split("listen practice\n")[1].splitlines()
        of_the_machines = ("  bind ", "  default-server ", "  server ")
        self.assertEqual([line for line in told if not line.startswith(of_the_machines)], tried)

    def test_postgresql_and_its_standby_are_set_alike(self):
        told = settings(block("listen_addresses"))
        self.assertLess(POSTGRESQL_OF_THE_MACHINES, set(told))
        for name in set(told) - POSTGRESQL_OF_THE_MACHINES:
            self.assertRegex(self.script, rf"\b{name} = {told[name]}\b")
        self.assertIn("ALTER SYSTEM SET synchronous_standby_names = '", self.script)

    def test_programs_find_the_primary_by_the_same_options(self):
        told = settings(block("Servername"))["pqopt"].split()
        options = [option for option in told if not option.startswith(("hostaddr=", "sslrootcert="))]
        source = (ROOT / "tests" / "cluster" / "a_cluster.cpp").read_text(encoding="utf-8")
        tried = re.sub(r'"\s*"', "", source)
        self.assertIn(f'{" ".join(options)}"', tried)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
