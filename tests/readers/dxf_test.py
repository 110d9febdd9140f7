"""Loads the DXF files of the samples with a reader that we did not write.

The folder of the samples stands in the environment variable SAMPLES.
"""

import math
import os
import pathlib
import unittest

import ezdxf
from ezdxf import recover

SAMPLES = pathlib.Path(os.environ["SAMPLES"])
CUTS = ("crosscut", "twistfoot", "vertical")
# The corner patches of a tour, where its files are the samples.
PATCHES = sorted(pathlib.Path(os.environ.get("PATCHES", "/nonexistent")).rglob("Patch_*.dxf"))


def load(path):
    """The polylines of a file as lists of points, by colour, after a reader's own checks."""
    text = path.read_bytes()
    assert text.count(b"\n") == text.count(b"\r\n"), f"{path}: a line without CR LF"
    document = ezdxf.readfile(path)
    _, auditor = recover.readfile(path)
    assert not auditor.has_errors, f"{path}: {[str(e) for e in auditor.errors]}"
    entities = list(document.modelspace())
    assert all(e.dxftype() == "POLYLINE" and e.is_3d_polyline for e in entities), path
    assert all(e.dxf.layer == "1" and not e.is_closed for e in entities), path
    assert all(p.dxf.color == e.dxf.color for e in entities for p in e.vertices), path
    return [(e.dxf.color, [tuple(p.dxf.location) for p in e.vertices]) for e in entities]


def shoelace(points):
    """Area inside a closed polyline, negative where it runs clockwise."""
    pairs = zip(points, points[1:] + points[:1])
    return sum(a[0] * b[1] - b[0] * a[1] for a, b in pairs) / 2


def surface(cut):
    """The areas of the strips of the surface grid, mm²."""
    count, *areas = (SAMPLES / cut / "surface.txt").read_text().split()
    assert int(count) == len(areas)
    return [float(area) for area in areas]


def panel_files(cut):
    return sorted((SAMPLES / cut).glob("Sample_Panel*.DXF"))


class PanelFiles(unittest.TestCase):
    def each_panel(self):
        for cut in CUTS:
            for path in panel_files(cut):
                with self.subTest(file=f"{cut}/{path.name}"):
                    yield load(path)

    def test_one_file_for_each_panel(self):
        for cut in CUTS:
            with self.subTest(cut=cut):
                count = len(surface(cut))
                self.assertGreater(count, 2)
                names = [f"Sample_Panel{n:02}.DXF" for n in range(1, count + 1)]
                self.assertEqual([path.name for path in panel_files(cut)], names)

    def test_guide_line_and_outline(self):
        for polylines in self.each_panel():
            self.assertEqual([colour for colour, _ in polylines], [5, 7])
            self.assertEqual([len(points) for _, points in polylines], [31, 75])

    def test_outline_ends_where_it_begins(self):
        for (_, _), (_, outline) in self.each_panel():
            self.assertEqual(outline[0], outline[-1])

    def test_flat(self):
        for polylines in self.each_panel():
            self.assertTrue(all(z == 0 for _, points in polylines for _, _, z in points))

    def test_corners_are_written_twice(self):
        # 1 + 6 + 31 + 6 + 31 vertices: the stretches share their corners.
        for (_, _), (_, outline) in self.each_panel():
            for corner in (7, 38, 44):
                self.assertEqual(outline[corner - 1], outline[corner])

    def test_lower_seam_lies_on_the_axis(self):
        for (_, _), (_, outline) in self.each_panel():
            self.assertEqual(outline[0], (0, 0, 0))
            self.assertAlmostEqual(outline[44][1], 0, delta=0.005)
            self.assertGreater(outline[44][0], 0)

    def test_areas_are_those_of_the_surface(self):
        for cut in CUTS:
            with self.subTest(cut=cut):
                areas = [abs(shoelace(load(path)[1][1])) for path in panel_files(cut)]
                strips = surface(cut)
                self.assertEqual(len(areas), len(strips))
                self.assertTrue(math.isclose(sum(areas), sum(strips), rel_tol=1e-4),
                                f"{sum(areas)} mm² of panels, {sum(strips)} mm² of surface")
                print(f"note: {cut}: {len(areas)} panels, {sum(areas) / 1e6:.4f} m² of outlines, "
                      f"{sum(strips) / 1e6:.4f} m² of surface, apart by "
                      f"{abs(sum(areas) / sum(strips) - 1) * 100:.5f} %")
                for number, (area, strip) in enumerate(zip(areas, strips), 1):
                    self.assertTrue(math.isclose(area, strip, rel_tol=1e-3, abs_tol=50),
                                    f"panel {number}: {area} mm², its strip {strip} mm²")


class PatchFiles(unittest.TestCase):
    @unittest.skipUnless("PATCHES" in os.environ, "no tour has left its patches")
    def test_each_is_one_closed_outline(self):
        self.assertGreaterEqual(len(PATCHES), 8)
        for path in PATCHES:
            with self.subTest(file=path.name):
                ((colour, outline),) = load(path)
                self.assertEqual(outline[0], outline[-1])
                self.assertGreater(abs(shoelace(outline)), 1000)


class Reader(unittest.TestCase):
    """The reader and the measure themselves."""

    def test_shoelace(self):
        self.assertEqual(shoelace([(0, 0), (4, 0), (4, 3), (0, 3)]), 12)
        self.assertEqual(shoelace([(0, 0), (0, 3), (4, 0)]), -6)

    def test_refuses_a_damaged_file(self):
        whole = panel_files("crosscut")[0].read_bytes()
        damaged = SAMPLES / "damaged.dxf"
        damaged.write_bytes(whole.replace(b"\r\n 10\r\n", b"\r\n 10\r\nno number\r\n", 1))
        with self.assertRaises(Exception):
            load(damaged)


if __name__ == "__main__":
    unittest.main(verbosity=0)
