#!/usr/bin/env python3
"""Builds the driver's help, one compiled HTML help file a language, from the topics in `help/`.

    build_help.py --out FOLDER [--kpdtool build/native/kpdtool] [--languages Eng,Ger]
    build_help.py --check [--kpdtool build/native/kpdtool]

With kpdtool pictures of the dialogs are made, too. `--check` checks the sources alone, as every build
does first; with kpdtool it also opens the pages and looks whether what they show is what the topics
explain. What a topic is made of is in documents.py.
"""
import html
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unicodedata

from documents import (LANGUAGES, PACKAGE, fault, faults, options_of, read_dialogs, read_documents, read_list,
                       report_faults, run_session, take_pictures)

HELP = PACKAGE / "help"

# Sessions with the property sheet: script, printer, and which of its pictures the topics have.
SESSIONS = (
    (HELP / "sessions/cards.sheet", ["--model", "Mirv KP-41", "--printer", "Mirv KP-41"],
     ["device-option", "printing-area", "color", "tools", "advance-tool", "heating-energy",
      "import-export", "settings-parts"]),
    # Another computer's printer is not asked for its encoder, whose answer comes after the picture; and
    # its About page needs no installed driver to tell the version.
    (HELP / "sessions/stripe.sheet", ["--model", "Mirv KP-41", "--printer", "Mirv KP-41", "--remote"],
     ["magnetic-encoding", "about"]),
    (HELP / "sessions/rewrite.sheet", ["--model", "Mirv KP-43", "--printer", "Mirv KP-43"], ["rewrite"]),
    (HELP / "sessions/plus_r.sheet", ["--model", "Mirv KP-49", "--printer", "Mirv KP-49"], []),
)


# ---- Checks -------------------------------------------------------------------------------------


def check_commands(pages):
    """What administrators are told to type stands in the file for them, whose commands are tested."""
    told = {line.strip() for line in (PACKAGE / "administrators.md").read_text("utf-8").splitlines()}
    for page in pages.values():
        for command in (line for kind, lines in page.blocks if kind == "pre" for line in lines):
            if command not in told:
                fault(f"{page.where}: administrators.md has no \"{command}\"")


def controls_of(printed):
    """What "print controls" printed: of each control the dialog's title, its name, class and text, and
    whether it is shown."""
    title, controls = "", []
    for line in printed.splitlines():
        if match := re.match(r'  (\S+)\s+(\S+)\s+"(.*?)"(?:\s|$)(.*)', line):
            controls.append([title, match[1], match[2], match[3].strip(), match[4]])
        elif line.startswith("  "):  # the rest of a row whose text is long
            controls[-1][4] += line
        else:
            title = line
    return [(*control, "hidden" not in rest) for *control, rest in controls]


def check_shown(kpdtool, topics, english):
    """The pages as users see them: each of their labels is in its topic, and what documents.txt calls
    unseen is."""
    _, unseen, plain = read_list(HELP)
    dialogs = read_dialogs()
    topic_of = {dialogs[name].title: english[topic.name] for topic in topics for name in topic.dialogs}
    shown = set()
    for script, printer, _ in SESSIONS:
        with tempfile.TemporaryDirectory() as state:
            printed = run_session(kpdtool, script, printer, pathlib.Path(state), "--language", "en")
        for title, control, kind, text, is_shown in controls_of(printed):
            if not is_shown:
                continue
            shown.add(control)
            is_label = kind == "Button" or control.endswith("_LABEL")
            if is_label and control not in plain and text and not {text, f"={text}"} & topic_of[title].keys:
                fault(f"{topic_of[title].where}: nothing on {control}, which reads \"{text}\"")
    for control in sorted(unseen & shown):
        fault(f"documents.txt: {control} is seen")
    for name, dialog in dialogs.items():
        for control, _ in dialog.labels:
            if control.startswith("IDC_") and not {name, control} & (unseen | shown):
                fault(f"documents.txt: {control} is not seen in {name}")


def topic_file(page, titles, pictures):
    return ('<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01//EN" "http://www.w3.org/TR/html4/strict.dtd">\n'
            "<html>\n<head>\n"
            f'<meta http-equiv="Content-Type" content="text/html; charset={page.language.charset}">\n'
            f"<title>{html.escape(page.title)}</title>\n"
            '<link rel="stylesheet" type="text/css" href="help.css">\n'
            "</head>\n<body>\n" + "\n".join(page.body(titles, pictures)) + "\n</body>\n</html>\n")


def sitemap(entries):
    return ('<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">\n<html>\n<body>\n'
            + "\n".join(entries) + "\n</body>\n</html>\n")


def site(parameters):
    lines = "".join(f'<param name="{name}" value="{html.escape(value)}">\n' for name, value in parameters)
    return f'<li><object type="text/sitemap">\n{lines}</object>'


def contents(topics, pages):
    entries, depth = ["<ul>"], 0
    for topic in topics:
        entries += ["<ul>"] * (topic.depth - depth) + ["</ul>"] * (depth - topic.depth)
        depth = topic.depth
        entries.append(site([("Name", pages[topic.name].title), ("Local", f"{topic.name}.html")]))
    return sitemap(entries + ["</ul>"] * (depth + 1))


def without_marks(text):
    """What a text is sorted by: letters without their accents."""
    plain = unicodedata.normalize("NFKD", text.casefold())
    return "".join(c for c in plain if not unicodedata.combining(c)), text


def index(pages):
    """Titles, the terms that topics explain and the words that they name."""
    places = {}
    for page in pages.values():
        terms = [term for term in page.terms if len(term) > 2 or not term.isascii()]  # "A" says nothing
        for word in dict.fromkeys([page.title] + page.words + terms):
            places.setdefault(word, []).append(page)
    entries = ["<ul>"]
    for word in sorted(places, key=without_marks):
        parameters = [("Name", word)]
        for page in places[word]:
            parameters += [("Name", page.title), ("Local", f"{page.document.name}.html")]
        entries.append(site(parameters))
    return sitemap(entries + ["</ul>"])


def project(suffix, language, title, files):
    # The compiler finds words of plain letters alone, so only English has a full-text search. A binary
    # index would hold bytes of no meaning, others each time.
    searched = suffix == "Eng"
    style = 0x42520 if searched else 0x42120
    return "\n".join([
        "[OPTIONS]", "Compatibility=1.1 or later", "Compiled file=help.chm", "Contents file=help.hhc",
        "Index file=help.hhk", "Binary Index=No", "Default topic=welcome.html", "Default Window=main",
        f"Title={title}", f"Language=0x{language.locale:x}",
        f"Full-text search={'Yes' if searched else 'No'}", "[WINDOWS]",
        f'main="{title}","help.hhc","help.hhk","welcome.html","welcome.html",,,,,0x{style:x},260,0x304e,'
        "[60,40,1010,740],,,,,,,0", "[FILES]"] + files) + "\n"


def without_times(chm):
    """The compiler notes when it ran: in the file's header and in the system file of the help."""
    data = bytearray(chm)
    data[0x10:0x14] = bytes(4)
    # A list of (code, length, bytes); the signature of the time's entry follows the compiler's name.
    at = data.index(b"\x0a\x00\x04\x00", data.index(b"Compiled by"))
    data[at + 4:at + 8] = bytes(4)
    return bytes(data)


def compile_help(suffix, topics, pages, kpdtool, out):
    language = LANGUAGES[suffix]
    name = f"Mv{suffix}Card.chm"
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        wanted = {picture for page in pages.values() for picture in page.pictures()}
        if kpdtool:
            take_pictures(kpdtool, SESSIONS, language, folder)
        pictures = {path.stem for path in folder.glob("*.png")}
        if kpdtool and wanted != pictures:
            fault(f"{name}: these pictures are not there or not shown: {' '.join(sorted(wanted ^ pictures))}")
        titles = {name: page.title for name, page in pages.items()}

        def write(name, text, errors="strict"):
            (folder / name).write_bytes(text.encode(language.codec, errors))

        for page_name, page in pages.items():
            write(f"{page_name}.html", topic_file(page, titles, pictures), "xmlcharrefreplace")
        shutil.copy(HELP / "help.css", folder)
        write("help.hhc", contents(topics, pages))
        write("help.hhk", index(pages))
        files = [f"{page_name}.html" for page_name in pages] + ["help.css"] + sorted(
            f"{picture}.png" for picture in pictures)
        write("help.hhp", project(suffix, language, titles["welcome"], files))
        done = subprocess.run(["chmcmd", "help.hhp"], cwd=folder, capture_output=True, text=True, errors="replace")
        if done.returncode != 0 or not (folder / "help.chm").exists():
            fault(f"{name}: chmcmd failed\n{done.stdout}{done.stderr}")
            return
        (out / name).write_bytes(without_times((folder / "help.chm").read_bytes()))
        print(f"{name}: {len(pages)} topics, {len(pictures)} pictures")


def main():
    options = options_of("Builds the driver's help files.", LANGUAGES, "chmcmd", "fp-utils")
    topics, languages = read_documents(HELP, options.languages, every_dialog=True)
    check_commands(languages["Eng"])
    if options.kpdtool:
        check_shown(options.kpdtool, topics, languages["Eng"])
    if not options.check and not faults:
        for suffix in options.languages:
            compile_help(suffix, topics, languages[suffix], options.kpdtool, options.out)
    return report_faults()


if __name__ == "__main__":
    sys.exit(main())
