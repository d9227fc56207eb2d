#!/usr/bin/env python3
"""Gathers what an administrator installs: the built library and tool, the files delivered beside them,
those of further folders (the help, the rendering half), and the setup file that names them all.

The same files give the same bytes, in the zip file too.
"""
import argparse
import pathlib
import shutil
import sys
import zipfile

PACKAGE = pathlib.Path(__file__).resolve().parent
RENDERING_LIBRARY = "kpdgdi.dll"
SHIPPED_SETUP_FILE = "KP4xx.in_"  # a remote printer's computer reads the version there
PROFILES = (".icc", ".icm")


def read_version():
    """The version and the day of its release as (year, month, day)."""
    version, date = (PACKAGE / "version.txt").read_text("ascii").split()
    return version, tuple(int(part) for part in date.split("-"))


def gather(folders):
    """The files by their names. In the driver directory they lie in no folders and have no case."""
    files = {}
    for folder in folders:
        for path in sorted(path for path in folder.rglob("*") if path.is_file()):
            if other := files.get(path.name.lower()):
                sys.exit(f"{path}: there is {other} already")
            files[path.name.lower()] = path
    return {path.name: path for path in sorted(files.values(), key=lambda path: path.name.lower())}


def setup_file(names, version, date):
    """Its text, for these files of the driver directory."""
    profiles = [name for name in names if name.lower().endswith(PROFILES)]
    others = [name for name in names if name not in profiles]
    lists = {"DriverFiles": others} | ({"ColorProfiles": profiles} if profiles else {})
    year, month, day = date
    values = {
        "DRIVER_VER": f"{month:02}/{day:02}/{year},{version}",
        # Without the rendering half our own stands in its place, so that the driver installs.
        "DRIVER_FILE": RENDERING_LIBRARY if RENDERING_LIBRARY in names else "kpdui.dll",
        "COPY_FILES": ", ".join(lists),
        "FILES": "\n\n".join("\n".join([f"[{name}]", *files]) for name, files in lists.items()),
        "SOURCE_FILES": "\n".join(f"{name} = 1" for name in names),
    }
    text = (PACKAGE / "kpdui.inf.in").read_text("ascii")
    for key, value in values.items():
        text = text.replace(f"@{key}@", value)
    return text.replace("\n", "\r\n")


def write_package(built, further, out):
    version, date = read_version()
    files = gather([PACKAGE / "languages", PACKAGE / "pictures", PACKAGE / "samples", *further])
    for name, path in files.items():
        if name.lower() in ("kpdui.dll", "kpdui.inf", "kpdtool.exe", SHIPPED_SETUP_FILE.lower()):
            sys.exit(f"{path}: the package has its own")
    files["kpdui.dll"] = built / "kpdui.dll"
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    for name, path in files.items():
        shutil.copyfile(path, out / name)
    text = setup_file(sorted([*files, SHIPPED_SETUP_FILE], key=str.lower), version, date)
    for name in ("kpdui.inf", SHIPPED_SETUP_FILE):
        (out / name).write_bytes(text.encode("ascii"))
    # What is for the administrator and goes to no driver directory.
    shutil.copyfile(built / "kpdtool.exe", out / "kpdtool.exe")
    shutil.copyfile(PACKAGE / "administrators.md", out / "administrators.md")


def write_zip(out, path):
    version, date = read_version()
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as packed:
        for file in sorted(out.iterdir()):
            entry = zipfile.ZipInfo(f"kpdui-{version}/{file.name}", (*date, 0, 0, 0))
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            packed.writestr(entry, file.read_bytes())


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--built", type=pathlib.Path, required=True, metavar="FOLDER",
                        help="where kpdui.dll and kpdtool.exe were built")
    parser.add_argument("--out", type=pathlib.Path, required=True, metavar="FOLDER",
                        help="the package's folder, made anew")
    parser.add_argument("--zip", type=pathlib.Path, metavar="FILE", help="the same as one file")
    parser.add_argument("further", type=pathlib.Path, nargs="*", metavar="FOLDER",
                        help="whose files belong to the driver, too")
    options = parser.parse_args()
    write_package(options.built, options.further, options.out)
    if options.zip:
        write_zip(options.out, options.zip)


if __name__ == "__main__":
    main()
