"""Tests of files, charts and patches, and of the README's examples."""

import copy
import ctypes.util
import doctest
import gc
import importlib.util
import json
import math
import os
import pickle
import re
import subprocess
import sys
import tempfile
import threading
import unittest.mock
from pathlib import Path

from support import BINDING, DATA, HAS_NUMPY, PROJECT, RGB, chart_of, rows_of, text_of

import build_backend
import measdata
from measdata import _signatures


class Declarations(unittest.TestCase):
    def test_every_function_is_declared_as_the_headers_have_it(self):
        for folder, name, signatures in (
            ("api", "measdata", _signatures.SIGNATURES),
            ("kit", "measkit", _signatures.KIT_SIGNATURES),
        ):
            header = (PROJECT / folder / f"{name}.h").read_text()
            exports = (PROJECT / folder / "exports.txt").read_text().splitlines()
            with self.subTest(name):
                declared = self.declared(signatures)
                self.assertEqual(declared, self.expected(header, name.upper()))
                self.assertEqual({name for name in exports if "(" not in name}, set(declared))

    @staticmethod
    def expected(header, prefix):
        kinds = {"int": "i", "double": "d", "size_t": "n", "void": "v", "char*": "s"}
        kinds.update(mk_options="i", mk_severity="i")

        def kind(declaration):
            stars = "*" * declaration.count("*")
            return kinds.get(re.findall(r"\w+", declaration.replace("const ", ""))[0] + stars, "p")

        pattern = rf"{prefix}_API (.+?)(\w+)\(([^)]*)\) {prefix}_NOEXCEPT;"
        expected = {}
        for result, name, arguments in re.findall(pattern, header):
            listed = [] if arguments == "void" else arguments.split(",")
            expected[name] = (kind(result), "".join(map(kind, listed)))
        for name in expected.keys() & {"mk_plain_text", "mk_converted_text"}:
            expected[name] = ("p", expected[name][1])  # an address: the text may hold zero bytes
        return expected

    @staticmethod
    def declared(signatures):
        codes = {ctypes.c_int: "i", ctypes.c_double: "d", ctypes.c_char_p: "s", None: "v"}
        codes[ctypes.c_size_t] = "n"
        return {
            name: (codes.get(result, "p"), "".join(codes.get(a, "p") for a in arguments))
            for result, arguments, names in signatures
            for name in names.split()
        }

    def test_versions_agree(self):
        self.assertEqual(measdata.__version__, measdata.version)


class Values(unittest.TestCase):
    def test_patches_are_a_sequence(self):
        patches = chart_of("SAMPLE_ID GRAY", "a 0\nb 50\nc 100").patches
        self.assertEqual([p.id for p in patches], ["a", "b", "c"])
        self.assertEqual([p.id for p in patches[1:][::-1]], ["c", "b"])
        self.assertEqual((len(patches), patches[-1].id, patches[1:][0].id), (3, "c", "b"))
        self.assertEqual(rows_of(patches[:0:-1].device()), [(100,), (50,)])
        self.assertEqual(patches.index(patches[1]), 1)
        for position in (3, -4):
            self.assertRaises(IndexError, patches.__getitem__, position)

    def test_what_the_file_lacks_is_none(self):
        patch = chart_of("XYZ_X XYZ_Y XYZ_Z", "1 2 3").patches[0]
        self.assertEqual(patch.xyz, (1, 2, 3))
        for value in (patch.lab, patch.srgb, patch.hex, patch.spectrum, patch.device):
            self.assertIsNone(value)
        self.assertEqual((patch.id, patch.name, patch.location), ("", "", ""))
        chart = chart_of("SAMPLE_ID GRAY", "1 0")
        self.assertIsNone(chart.merged[0].stats)
        patches = chart.patches
        for table in (patches.xyz, patches.lab, patches.srgb, chart.merged.spectra):
            self.assertIsNone(table())
        self.assertIsNone(chart_of("GRAY", "5").paper_white)
        self.assertEqual(chart.wavelengths, ())

    def test_tables_agree_with_patches(self):
        chart = measdata.load(DATA / "cmyk-spectral-310.txt")
        for patches in (chart.patches[5:90], chart.patches[::-3], chart.merged, chart.patches[9:9]):
            self.assertEqual(rows_of(patches.spectra()), [p.spectrum for p in patches])
            self.assertEqual(rows_of(patches.lab()), [p.lab for p in patches])
            self.assertEqual(rows_of(patches.srgb()), [p.srgb for p in patches])
            self.assertEqual(rows_of(patches.device()), [p.device for p in patches])
        table = chart.patches[:2].device()
        self.assertEqual(type(table).__name__, "ndarray" if HAS_NUMPY else "list")
        devices = [p.device for p in chart.patches[:2]]
        chart.close()
        self.assertEqual(rows_of(table), devices)  # a table outlives its chart

    def test_merged_patches(self):
        fields = "CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B"
        rows = "0 0 0 0 90 0 0\n0 0 0 0 93 4 0\n100 0 0 0 50 1 2\n40 0 0 0 70 0 0\n40 9 0 0 60 0 0"
        chart = chart_of(fields, rows)
        white = chart.paper_white
        self.assertEqual((len(chart.merged), white.lab), (4, (91.5, 2, 0)))
        self.assertEqual(white.stats, measdata.RepeatStats(2, 5.0, 5.0))
        single = measdata.RepeatStats(1, None, None)
        cyan = chart.channels[0]
        self.assertEqual([p.device[0] for p in cyan.wedge], [40, 100])
        self.assertEqual((cyan.solid, cyan.solid.stats), (cyan.wedge[-1], single))
        self.assertEqual(cyan.distinct, [(0, 2), (40, 2), (100, 1)])
        self.assertEqual((chart.device_space, chart.channels[1].solid), ("CMYK", None))
        # Without any repeat the library gives other numbers for a single measurement.
        self.assertEqual(chart_of(fields, rows.splitlines()[0]).merged[0].stats, single)

    def test_colours(self):
        patch = chart_of("LAB_L LAB_A LAB_B", "0 0 0").patches[0]  # black is a colour
        self.assertEqual((patch.lab, patch.hex), ((0, 0, 0), "#000000"))
        chart = chart_of("nm400 nm420 nm440", ".1 .2 .3")
        self.assertEqual(chart.wavelengths, (400, 420, 440))
        self.assertEqual(chart.patches[0].spectrum, (0.1, 0.2, 0.3))
        self.assertEqual(measdata.lab_to_srgb(iter((0, 0, 0))), (0, 0, 0))
        for wrong in ((1, 2), (1, 2, 3, 4)):
            self.assertRaises(ValueError, measdata.lab_to_srgb, wrong)

    def test_header(self):
        chart = measdata.load(DATA / "densities.txt", repair=False)
        self.assertEqual(chart.instrument[:4], ("Talvik", "D20", "42", "45/0"))
        self.assertEqual((chart.sample.backing, chart.sample.material), ("black", None))
        self.assertEqual((chart.density_status, chart.illuminant), ("Status T", "D50"))
        self.assertEqual(chart.messages, ["Averaging of densities not implemented, yet!"])

    def test_keywords_and_encodings(self):
        twice = 'WEIGHTING_FUNCTION "b"\nWEIGHTING_FUNCTION "a"\n'
        chart = chart_of("GRAY", "0", twice + 'SERIAL "\xb0"\nMATERIAL "\xc2\xb0"')
        keywords = chart.keywords
        self.assertEqual(keywords["WEIGHTING_FUNCTION"], ["b", "a"])
        self.assertEqual(keywords.names(), ["MATERIAL", "SERIAL", "WEIGHTING_FUNCTION"])
        self.assertEqual((chart.sample.serial_number, chart.sample.material), ("\xb0", "\xb0"))
        self.assertEqual((keywords.first("NONE"), "NONE" in keywords), (None, False))
        self.assertRaises(KeyError, keywords.__getitem__, "NONE")


class Loading(unittest.TestCase):
    def test_modes(self):
        table = (DATA / "semicolon-table.csv").read_bytes()
        for mode in ("auto", "table"):
            chart = measdata.load_bytes(memoryview(table), mode=mode, repair=False)
            self.assertEqual((chart.mode, len(chart.patches)), ("table", 7))
        for data, mode in ((table, "measurement"), (b"% a;b\n1;2\n", "auto"), (b"", "auto")):
            with self.assertRaises(measdata.MeasurementError) as failure:
                measdata.load_bytes(data, name="x.txt", mode=mode)
            self.assertTrue(failure.exception.messages)
            self.assertIn("x.txt: ", str(failure.exception))
            unpickled = pickle.loads(pickle.dumps(failure.exception))
            self.assertEqual(str(unpickled), str(failure.exception))
        self.assertRaises(ValueError, measdata.load_bytes, table, mode="semicolon")
        for wrong in ("text", 5):
            self.assertRaises(TypeError, measdata.load_bytes, wrong)

    def test_files_that_cannot_be_read(self):
        with tempfile.TemporaryDirectory() as directory:
            self.assertRaises(FileNotFoundError, measdata.load, Path(directory) / "none")
            self.assertRaises(OSError, measdata.load, directory)
            letter = Path(directory) / "Gr\xfc\xdfe \u6e2c.txt"
            letter.write_bytes(b"Hello")
            self.assertRaises(measdata.MeasurementError, measdata.load, letter)
            letter.write_bytes((DATA / "rgb-older-form.txt").read_bytes())
            self.assertEqual(len(measdata.load(str(letter)).patches), 12)
            # What stands in front of the zero byte names the letter.
            self.assertRaises(ValueError, measdata.load, f"{letter}\0.txt")
            if hasattr(os, "mkfifo"):
                os.mkfifo(f"{directory}/pipe")
                self.assertRaises(measdata.MeasurementError, measdata.load, f"{directory}/pipe")


class Kit(unittest.TestCase):
    def test_a_repair_is_told(self):
        text = text_of("SAMPLE_ID XYZ_X XYZ_Y XYZ_Z", "w 96.422 100 82.521", "NUMBER_OF_SETS 3")
        chart = measdata.load_bytes(text.decode().encode("utf-16"))
        utf16, count, lab = chart.findings  # that of the file comes first
        self.assertEqual((utf16.code, utf16.severity, utf16.line), ("utf-16", "repaired", None))
        self.assertEqual((count.code, count.line, lab.code), ("wrong-count", 2, "lab-added"))
        self.assertEqual((f"{lab.severity}", chart.more_findings), ("repaired", 0))
        self.assertIn("D50", lab.sentence)
        self.assertTrue(all(abs(x - y) < 1e-9 for x, y in zip(chart.patches[0].lab, (100, 0, 0))))
        again = measdata.load_bytes(chart.plain_text)
        self.assertEqual((again.findings, again.patches[0].lab), ((), chart.patches[0].lab))
        as_is = measdata.load_bytes(text, repair=False)
        self.assertEqual((as_is.findings, as_is.plain_text), ((), text))
        self.assertIsNone(as_is.patches[0].lab)

    def test_many_findings(self):
        nameless = b"CGATS.17\n" + b"BEGIN_DATA\n1\nEND_DATA\n" * 103
        chart = measdata.load_bytes(nameless + RGB)
        self.assertEqual((len(chart.findings), chart.more_findings), (100, 3))
        self.assertEqual({finding.severity for finding in chart.findings}, {measdata.Severity.LOST})

    def test_further_tables(self):
        second = text_of("SAMPLE_ID LAB_L LAB_A LAB_B", "z\0z 50 1 2", 'FILTER "M2"')
        chart = measdata.load_bytes(RGB + second + second, name="three")
        first, last = chart.tables
        self.assertIs(chart.tables[0], first)
        self.assertEqual((len(chart.patches), chart.condition, last.condition), (2, None, "M2"))
        self.assertEqual((first.tables, repr(last)), ((), "<Chart 'three', table 3: 1 patches>"))
        self.assertIn(b"z\0z 50", last.plain_text)
        chart.close()
        del chart
        gc.collect()
        self.assertEqual((first.patches[0].lab, first.findings), ((50, 1, 2), ()))
        self.assertEqual(len(json.loads(last.to_json())["further_charts"]), 2)
        self.assertIn("<html", last.to_html())

    def test_columns_that_the_library_does_not_return(self):
        chart = chart_of("D_RED D_VIS", ".5 nan\n1 2", repair=True)
        names, values = chart.density
        self.assertEqual((names, len(values), values[0][0]), (("D_RED", "D_VIS"), 2, 0.5))
        self.assertTrue(math.isnan(values[0][1]))
        self.assertIsNone(chart.lch)
        chart = chart_of("LAB_L LAB_C LAB_H", "50 2 90\n3 4 5", repair=True)
        if HAS_NUMPY:
            chart.lch[0] = 7  # a copy
        self.assertEqual((rows_of(chart.lch), chart.density), ([(50, 2, 90), (3, 4, 5)], None))
        fields, row = "D_RED CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B", ".5 0 0 0 0 50 0 0"
        repeats = chart_of(fields, f"{row}\n{row}", repair=True)
        self.assertEqual((len(repeats.merged), rows_of(repeats.density.values)), (1, [(0.5,)] * 2))

    def test_paper_white_of_rgb(self):
        for repair, white in ((True, (1, 1, 1)), (False, (0, 0, 0))):
            chart = measdata.load_bytes(RGB, repair=repair)
            self.assertEqual(chart.paper_white.device, white)
        without_white = RGB.replace(b"1 1 1", b"1 1 0")
        self.assertIsNone(measdata.load_bytes(without_white).paper_white)

    def test_conversions(self):
        chart = chart_of("SAMPLE_ID LAB_L LAB_A LAB_B OWN", "a 50 1 2 é", repair=True)
        self.assertEqual(chart.to_csv(bare=True), "SAMPLE_ID,LAB_L,LAB_A,LAB_B,OWN\na,50,1,2,é\n")
        rows = chart.converted("cgats", select=("lab",)).text.splitlines()
        self.assertEqual(rows[-2], "a\t50\t1\t2")
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "chart.txt")
            (sentence,) = chart.save(path)
            self.assertIn("OWN", sentence)
            self.assertRaises(FileExistsError, chart.save, path)
            self.assertEqual(chart.save(path, "json", overwrite=True), ())
            self.assertEqual(os.listdir(folder), ["chart.txt"])
            self.assertEqual(measdata.load(path).patches[0].lab, (50, 1, 2))
            self.assertRaises(ValueError, chart.save, os.path.join(folder, "chart"))
        for grid in ((400, 700, 10), (700, 400, 10)):
            self.assertRaises(measdata.ConversionError, chart.converted, "csv", grid=grid)

    def test_a_given_mode_does_not_repair(self):
        chart = measdata.load_bytes(b"\n" + RGB[9:], mode="table")
        self.assertEqual((chart.findings, chart.tables, chart.condition), ((), (), None))
        self.assertRaises(ValueError, chart.to_json)

    def test_a_file_without_tables(self):
        with self.assertRaises(measdata.MeasurementError) as failure:
            measdata.load_bytes(b"")
        self.assertEqual(failure.exception.messages, ["The file is empty."])


class Lifetime(unittest.TestCase):
    def test_a_closed_chart_answers_nothing(self):
        with chart_of("SAMPLE_ID GRAY LAB_L LAB_A LAB_B", "1 100 1 2 3") as chart:
            patch, merged, channel = chart.patches[0], chart.merged[0], chart.channels[0]
            holders = (chart, chart.patches, chart.merged, patch, merged, channel)
        chart.close()
        questions = [
            (holder, name)
            for holder in holders
            for name in dir(type(holder))
            if isinstance(getattr(type(holder), name), property) and name not in ("closed", "index")
        ]
        calls = [(chart, "__enter__"), (chart, "to_json"), (chart, "to_html")]
        calls += [(holders[1], "__len__"), (holders[1], "lab")]
        for holder, name in questions + calls:
            repr(holder)
            with self.subTest(name=name), self.assertRaises(ValueError):
                getattr(holder, name)()

    def test_who_owns_the_native_data(self):
        patch = chart_of("SAMPLE_ID GRAY", "1 7").patches[0]
        gc.collect()
        self.assertEqual((patch.id, patch.device), ("1", (7,)))  # a patch keeps its chart
        chart = chart_of("GRAY", "7")
        with unittest.mock.patch("sys.unraisablehook") as hook:
            self.assertRaises((TypeError, ValueError), copy.deepcopy, chart)
            hook.assert_not_called()
        copy.copy(chart).close()
        self.assertEqual(chart.patches[0].device, (7,))

    @unittest.skipUnless(importlib.util.find_spec("resource"), "memory is not told here")
    def test_closed_charts_keep_no_native_data(self):
        import resource

        text = RGB + b"#" * 1_000_000 + b"\n" + RGB
        closed = []
        for _ in range(100):
            closed.append(measdata.load_bytes(text))
            self.assertEqual(len(closed[-1].tables), 1)
            closed[-1].close()
            if len(closed) == 10:
                before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
        peak = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
        self.assertLess(peak, 1.5 * before)

    def test_closing_while_others_ask(self):
        for _ in range(20):
            chart = measdata.load(DATA / "cmyk-spectral-310.txt")
            seen = []

            def ask(chart=chart, seen=seen):
                try:
                    while True:
                        seen.append(len(chart.patches.spectra()))
                except ValueError:
                    seen.append("closed")

            threads = [threading.Thread(target=ask) for _ in range(2)]
            for thread in threads:
                thread.start()
            while not seen:
                pass
            chart.close()
            for thread in threads:
                thread.join()
            self.assertEqual((set(seen), seen.count("closed")), ({310, "closed"}, 2))


def run_python(code, **environment):
    return subprocess.run(
        [sys.executable, "-B", "-W", "error", "-c", code],
        env={**os.environ, "PYTHONPATH": str(BINDING), **environment},
        cwd=DATA,
        capture_output=True,
        text=True,
    )


class Interpreter(unittest.TestCase):
    def test_end_with_open_charts(self):
        code = f"import measdata; c = measdata.load({str(DATA / 'rgb-older-form.txt')!r}); c.me = c"
        ended = run_python(code)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))

    def test_a_missing_library_is_told(self):
        for wrong in ("/no/such/library.so", ctypes.util.find_library("c") or "libc.so.6"):
            for name in ("measdata", "measkit"):
                ended = run_python("import measdata", **{f"{name.upper()}_LIBRARY": wrong})
                self.assertIn(f"OSError: the {name} library cannot be loaded", ended.stderr)
                self.assertIn(wrong, ended.stderr)

    def test_wheel(self):
        with tempfile.TemporaryDirectory() as directory:
            wheel = str(Path(directory) / build_backend.build_wheel(directory))
            code = "import measdata as b, importlib.metadata as m; print(m.version('measdata'), b)"
            ended = run_python(code, PYTHONPATH=wheel)
            self.assertEqual(ended.stderr, "")
            self.assertEqual(ended.stdout.split()[0], measdata.version)
            self.assertIn(wheel, ended.stdout)


class MarkdownParser(doctest.DocTestParser):
    """Code fences end the expected output."""

    def parse(self, string, name="<string>"):
        return super().parse(string.replace("```", ""), name)


def load_tests(loader, tests, pattern):
    here = os.getcwd()
    tests.addTests(
        doctest.DocFileSuite(
            str(BINDING / "README.md"),
            module_relative=False,
            parser=MarkdownParser(),
            setUp=lambda test: os.chdir(DATA),
            tearDown=lambda test: os.chdir(here),
        )
    )
    return tests


if __name__ == "__main__":
    unittest.main()
