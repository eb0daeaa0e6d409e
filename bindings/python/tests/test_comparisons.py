"""Tests of comparisons."""

import gc
import json
import unittest

from support import DATA, HAS_NUMPY, RGB, chart_of, text_of

import measdata


class Comparing(unittest.TestCase):
    FIELDS = "SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B"
    PAPER = "w 0 0 0 0 90 0 0\nw2 0 0 0 0 90 0 0\nw3 0 0 0 0 96 0 0\n"
    ROWS = PAPER + "c 100 0 0 0 50 1 2\nx 9 9 0 0 7 8 9"

    def setUp(self):
        self.a = chart_of(self.FIELDS, self.ROWS)
        self.b = chart_of(self.FIELDS, "c 100 0 0 0 50 6 14\nw 0 0 0 0 93 4 0\ny 0 0 9 9 1 2 3")

    def test_figures_and_colours(self):
        c = self.a.compare(self.b, median=True)  # so that the first paper is the median one
        self.assertEqual((len(c), len(self.a.compare(self.b, "order"))), (2, 3))
        self.assertEqual((c.all.de76.mean, c.all.de76.max, c.paper.de76.max), (9, 13, 5))
        self.assertEqual((c.all.count, c.solids.count, c.overprints, c.all.rms), (2, 1, None, None))
        self.assertEqual((list(c.de76), list(c.dl), list(c.db)), ([5, 13], [3, 0], [0, 12]))
        self.assertEqual((list(c.reference_patches), list(c.sample_patches)), ([0, 3], [1, 0]))
        self.assertEqual(type(c.de00).__name__, "ndarray" if HAS_NUMPY else "list")
        c.de76[0] = 99  # a copy
        (worst,) = c.worst(1)
        self.assertEqual((worst.index, worst.da, worst.de76), (1, 5, 13))
        self.assertEqual((worst.reference, worst.sample.lab), (self.a.patches[3], (50, 6, 14)))
        self.assertEqual([(x.de76, x.rms) for x in c], [(5, None), (13, None)])
        self.assertRaises(IndexError, c.__getitem__, 2)

    def test_every_measure_and_formula_is_that_of_the_json(self):
        spectral = measdata.load(DATA / "cmyk-spectral-310.txt")
        other = measdata.load_bytes(spectral.plain_text.replace(b"0.8", b"0.7"))
        for formula in ("de00", "de76", "de94", "cmc"):
            c = spectral.compare(other, formula=formula)
            told = json.loads(c.to_json())
            self.assertEqual(told["formula"], formula)
        colour = told["colours"][1]
        names = [name for name in colour if name not in ("reference", "sample")]
        self.assertEqual((len(names), len({colour[name] for name in names})), (12, 12))
        for name in names:
            figures = getattr(c.all, name)._asdict()
            self.assertEqual((getattr(c[1], name), figures), (colour[name], told["all"][name]))

    def test_options(self):
        self.assertEqual(self.a.compare(self.b, match="id")[0].dl, 3)  # not the mean of 92
        self.assertAlmostEqual(self.a.compare(self.b)[0].dl, 1)
        dark = chart_of(self.FIELDS, "d 0 0 0 0 60 0 0\nz 100 0 0 0 50 1 30")
        weights = {(1, 1): 2, (2, 1): 1}
        cmc = {w: self.a.compare(dark, "device", "cmc", cmc=w)[0].cmc for w in weights}
        self.assertAlmostEqual(cmc[1, 1], 2 * cmc[2, 1])
        worst = {f: self.a.compare(dark, formula=f).worst()[0].index for f in ("de76", "cmc")}
        self.assertEqual(worst, {"de76": 0, "cmc": 1})
        for wrong in ({"match": "ids"}, {"formula": "de2000"}, {"cmc": (0, 1)}):
            self.assertRaises(ValueError, self.a.compare, self.b, **wrong)
        self.assertRaises(TypeError, self.a.compare, "b.txt")

    def test_what_the_json_tells(self):
        c = self.a.compare(self.b)
        self.assertEqual((c.only_in_reference, c.only_in_sample), (("x",), ("y",)))
        self.assertEqual(c.match, json.loads(c.to_json())["match"])
        self.assertIn("unmatched-colours", [finding.code for finding in c.findings])
        (ink,) = c.tone_values
        self.assertEqual((ink.ink, ink.steps[-1].nominal), ("Cyan", 100))
        self.assertEqual(ink.steps[-1].sample[:2], (100, 0))
        self.assertIn("<html", c.to_html())

    def test_refusals(self):
        with self.assertRaisesRegex(measdata.ComparisonError, "^The sample has no Lab"):
            self.a.compare(chart_of("GRAY", "0"))
        text = text_of(self.FIELDS, self.ROWS)
        with self.assertRaisesRegex(ValueError, "loaded with a mode"):
            self.a.compare(measdata.load_bytes(text, mode="measurement"))

    def test_lifetime(self):
        c = self.a.compare(self.b)
        colour, group = c[0], c.all
        self.a.close()
        self.assertRaises(ValueError, self.a.compare, self.b)
        self.assertRaises(ValueError, self.b.compare, self.a)
        self.assertEqual((group.count, len(c.de00), colour.sample.id), (2, 2, "w"))
        self.assertRaises(ValueError, lambda: colour.reference.id)
        c.close()
        for ask in (lambda: c.de00, lambda: c.paper, lambda: group.de00, lambda: len(c), c.to_json):
            self.assertRaises(ValueError, ask)

    def test_a_comparison_is_released_before_its_documents(self):
        released = []
        a, b = measdata.load_bytes(RGB), measdata.load_bytes(RGB)
        b.comparison = a.compare(b)  # a garbage cycle
        native = b.comparison._native
        for owner in (native, *native.documents):
            inner, name = owner._release, type(owner).__name__
            owner._release = lambda pointer, f=inner, n=name: (released.append(n), f(pointer))
        del a, b, native, owner
        gc.collect()
        self.assertEqual(released, ["NativeComparison", "Document", "Document"])


if __name__ == "__main__":
    unittest.main()
