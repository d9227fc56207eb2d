#!/usr/bin/env python3
"""Builds the manuals, PDF files such as AdvanceToolEng.pdf, from their documents in `manuals/`.

    build_manuals.py --out FOLDER --kpdtool build/native/kpdtool [--languages Eng,Chs,Cht]
    build_manuals.py --check

What a document is made of is in documents.py. WeasyPrint sets the pages, as manual.css says.
"""
import base64
import concurrent.futures
import datetime
import html
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from build_package import read_version
from documents import LANGUAGES, PACKAGE, fault, faults, options_of, read_documents, report_faults, take_pictures

MANUALS = PACKAGE / "manuals"
SUFFIXES = ("Eng", "Chs", "Cht")  # the driver opens the English one in all other languages

SESSIONS = (
    (MANUALS / "sessions/color.sheet", ["--model", "Mirv KP-41", "--printer", "Mirv KP-41"],
     ["advance-tool", "heating-energy-ymcko", "heating-energy-k"]),
    (MANUALS / "sessions/plus_r.sheet", ["--model", "Mirv KP-49", "--printer", "Mirv KP-49"], ["advance-tool-kp49"]),
    (MANUALS / "sessions/rewrite.sheet", ["--model", "Mirv KP-43", "--printer", "Mirv KP-43"], ["advance-tool-kp43"]),
)


def manual_file(page, folder):
    """The manual as HTML with its pictures in it: by a file's path it would differ from place to place."""
    version, released = read_version()
    pictures = {path.stem: path.read_bytes() for path in folder.glob("*.png")}
    body = re.sub(r'src="([\w-]+)\.png"',
                  lambda match: f'src="data:image/png;base64,{base64.b64encode(pictures[match[1]]).decode()}"',
                  "\n".join(page.body({}, pictures)))
    return (f'<!DOCTYPE html>\n<html lang="{page.language.tag}">\n<head>\n<meta charset="utf-8">\n'
            f"<title>{html.escape(page.title)}</title>\n"
            '<link rel="stylesheet" href="manual.css">\n'
            f"</head>\n<body>\n<header>Mirv KP · {version} · {datetime.date(*released)}</header>\n"
            + body + "\n</body>\n</html>\n")


def write_sources(suffix, pages, kpdtool, folder):
    """A language's manuals as HTML with what they need beside them."""
    folder.mkdir()
    shutil.copy(MANUALS / "manual.css", folder)
    if kpdtool:
        take_pictures(kpdtool, SESSIONS, LANGUAGES[suffix], folder)
    for name, page in pages.items():
        for picture in page.pictures():
            if kpdtool and not (folder / f"{picture}.png").exists():
                fault(f"{page.where}: no picture {picture}")
        (folder / f"{name}.html").write_text(manual_file(page, folder), "utf-8")


def set_pages(source, file):
    released = datetime.datetime(*read_version()[1], tzinfo=datetime.timezone.utc)
    done = subprocess.run(["weasyprint", "--quiet", source, file], capture_output=True, text=True,
                          env={**os.environ, "SOURCE_DATE_EPOCH": str(int(released.timestamp()))})
    if done.returncode != 0 or not file.exists():
        fault(f"{file.name}: weasyprint failed\n{done.stderr}")
    else:
        print(file.name)


def main():
    options = options_of("Builds the driver's manuals.", SUFFIXES, "weasyprint", "weasyprint")
    _, languages = read_documents(MANUALS, options.languages, every_dialog=False)
    if options.check or faults:
        return report_faults()
    with tempfile.TemporaryDirectory() as folder:
        sources, files = [], []
        for suffix in options.languages:
            pages = languages[suffix]
            write_sources(suffix, pages, options.kpdtool, pathlib.Path(folder) / suffix)
            sources += [pathlib.Path(folder) / suffix / f"{name}.html" for name in pages]
            files += [options.out / (name.title().replace("-", "") + f"{suffix}.pdf") for name in pages]
        # Taking the glyphs that are used out of a Chinese font takes its time.
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as setters:
            list(setters.map(set_pages, sources, files))  # which raises what a setter has raised
    return report_faults()


if __name__ == "__main__":
    sys.exit(main())
