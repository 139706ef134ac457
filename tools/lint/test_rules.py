"""The rules can fail: each is shown a file that breaks it and one that keeps it."""

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import check_layers  # noqa: E402
import check_lengths  # noqa: E402


class LayerRule(unittest.TestCase):
    KEEPS = [
        ("core/a.cpp", "<vector>"), ("core/a.cpp", '"platform/clock.h"'),
        ("platform/clock.h", "<chrono>"), ("ui/a.cpp", "<QtGui/QPainter>"),
        ("ui/a.cpp", "<QQuickItem>"), ("ui/a.cpp", '"moc_a.cpp"'),
        ("platform/linux/a.cpp", "<QDBusConnection>"), ("platform/linux/a.cpp", "<unistd.h>"),
        ("app/a.cpp", '"platform/linux/bus/a.h"'),
        ("platform/linux/bus/a.cpp", '"platform/linux/files/a.h"'),
        ("platform/linux/desktop/a.cpp", '"platform/linux/bus/a.h"'), ("app/a.cpp", "<malloc.h>"), ("preview/a.cpp", '"testing/a.h"'),
    ]
    BREAKS = [
        ("core/a.cpp", "<QString>"), ("core/a.cpp", "<unistd.h>"), ("core/a.h", '"ui/a.h"'),
        ("core/a.h", '"platform/linux/a.h"'), ("core/a.h", '"a.h"'),
        ("platform/clock.h", "<QObject>"), ("platform/clock.h", "<sys/mman.h>"),
        ("ui/a.cpp", '"platform/linux/a.h"'), ("ui/a.cpp", '"app/a.h"'),
        ("ui/a.cpp", "<QDBusConnection>"), ("ui/a.cpp", "<gio/gio.h>"), ("ui/a.cpp", "<unistd.h>"),
        ("app/a.cpp", "<QtDBus/QDBusConnection>"), ("app/a.cpp", "<sys/prctl.h>"),
        ("platform/linux/a.cpp", '"ui/a.h"'), ("preview/a.cpp", '"platform/linux/a.h"'),
        ("platform/linux/bus/a.cpp", '"platform/linux/desktop/a.h"'),
        ("platform/linux/memory/a.cpp", '"platform/linux/runtime/a.h"'),
    ]

    def test_includes(self):
        for path, include in self.KEEPS:
            self.assertEqual(check_layers.violations(path, f"#include {include}\n"), [], (path, include))
        for path, include in self.BREAKS:
            self.assertEqual(len(check_layers.violations(path, f"# include {include}\n")), 1,
                             (path, include))


class LengthRule(unittest.TestCase):
    def test_limits(self):
        self.assertIsNone(check_lengths.too_long("a.cpp", 400))
        self.assertIsNotNone(check_lengths.too_long("a.cpp", 401))
        self.assertIsNotNone(check_lengths.too_long("A.qml", 251))
        self.assertIsNone(check_lengths.too_long("data.txt", 9000))
        names = [f"{i}{ending}" for i in range(20) for ending in (".h", ".cpp")] + ["data.txt"]
        self.assertIsNone(check_lengths.too_full("ui/main", names))
        self.assertIsNotNone(check_lengths.too_full("ui/main", [*names, "Another.qml"]))
        self.assertIsNone(check_lengths.too_full("tests/unit", [*names, "Another.qml"]))


if __name__ == "__main__":
    unittest.main()
