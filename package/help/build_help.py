#!/usr/bin/env python3
"""Builds the driver's help, one compiled HTML help file a language, from the topics in the folders
beside this program.

    build_help.py --out FOLDER [--kpdtool build/native/kpdtool] [--languages Eng,Ger]
    build_help.py --check

A topic is a text file of a few kinds of blocks (`Page` below). It names controls by their English keys
in braces, which become the labels that the driver's dialogs have in that language, so help and dialogs
agree. With kpdtool pictures of these dialogs are made, too. `--check` only checks the sources, as
every build does first.
"""
import argparse
import html
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unicodedata

HELP = pathlib.Path(__file__).resolve().parent
ROOT = HELP.parent.parent


class Language:
    """A language that the driver has a help file's prefix for. What the viewer shows outside pages it
    takes in the code page of the file's locale, so everything is written in that."""

    def __init__(self, locale, codec, charset, tool, spaced=True):
        self.locale, self.codec, self.charset, self.tool = locale, codec, charset, tool
        self.joint = " " if spaced else ""


LANGUAGES = {
    "Eng": Language(0x0409, "cp1252", "windows-1252", "en"),
    "Ger": Language(0x0407, "cp1252", "windows-1252", "de"),
    "Jpn": Language(0x0411, "cp932", "shift_jis", "ja", spaced=False),
    "Frn": Language(0x040C, "cp1252", "windows-1252", "fr"),
    "Spn": Language(0x0C0A, "cp1252", "windows-1252", "es"),
    "Prt": Language(0x0416, "cp1252", "windows-1252", "pt"),
    "Ita": Language(0x0410, "cp1252", "windows-1252", "it"),
    "Pol": Language(0x0415, "cp1250", "windows-1250", "pl"),
    "Rus": Language(0x0419, "cp1251", "windows-1251", "ru"),
    "Chs": Language(0x0804, "gbk", "gb2312", "zh-CN", spaced=False),
    "Cht": Language(0x0404, "cp950", "big5", "zh-TW", spaced=False),
    "Krn": Language(0x0412, "cp949", "ks_c_5601-1987", "ko"),
}

# Sessions with the property sheet: script, printer, and of which pages it gives the pictures.
SESSIONS = (
    ("cards.sheet", ["--model", "Mirv KP-41", "--printer", "Mirv KP-41"],
     {"device-option", "printing-area", "color", "tools", "heating-energy", "import-export"}),
    # Another computer's printer is not asked for its encoder, whose answer comes after the picture.
    ("stripe.sheet", ["--model", "Mirv KP-41", "--printer", "Mirv KP-41", "--remote"], {"magnetic-encoding"}),
    ("rewrite.sheet", ["--model", "Mirv KP-43", "--printer", "Mirv KP-43"], {"rewrite"}),
)
DESIGNER = "dialog = accept 1\ncalls = no\n"

faults = []


def fault(text):
    faults.append(text)


# ---- What the sources refer to ------------------------------------------------------------------


class Topic:
    """A line of topics.txt."""

    def __init__(self, depth, name, sections, dialogs):
        self.depth, self.name, self.sections, self.dialogs = depth, name, sections, dialogs


def read_topics():
    topics, unseen = [], set()
    for line in (HELP / "topics.txt").read_text("utf-8").splitlines():
        words = line.split()
        if not words or line.startswith("#"):
            continue
        if words[0] == "unseen":
            unseen.update(words[1:])
            continue
        dialogs = [word for word in words[1:] if word.startswith("IDD_")]
        depth = (len(line) - len(line.lstrip())) // 2
        topics.append(Topic(depth, words[0], words[1:len(words) - len(dialogs)], dialogs))
    return topics, unseen


def read_language_file(suffix):
    """Sections of keys and texts, blanks around them left out as the platform does."""
    path = ROOT / "package" / "languages" / f"mv{suffix}kpd.ini"
    if not path.exists():
        return None
    sections, section = {}, None
    for line in path.read_text("utf-16").splitlines():
        if line.startswith("["):
            section = sections.setdefault(line.strip("[] "), {})
        elif "=" in line:
            key, text = line.split("=", 1)
            section[key.strip()] = text.strip()
    return sections


def read_driver_texts():
    """All string literals of the pages, one after the other, those that belong together joined."""
    sources = [path for folder in ("ui", "companions") for path in sorted((ROOT / folder).rglob("*.[ch]*"))]
    text = "\n".join(path.read_text("utf-8") for path in sources)
    return re.sub(r'"\s*"', "", text)


def read_dialogs():
    """Of each dialog of kpdui.rc the pairs of a control's name and its label."""
    label = re.compile(r'\s*\w*(?:TEXT|BOX|BUTTON)\s+"((?:[^"]|"")+)",\s*(\w+),')
    dialogs, name, is_page = {}, None, True
    for line in (ROOT / "resources" / "kpdui.rc").read_text("utf-8").splitlines():
        if match := re.match(r"(IDD_\w+) DIALOGEX", line):
            name = match[1]
            dialogs[name] = []
        elif line.startswith("STYLE"):
            is_page = "PAGE_STYLE" in line
        elif line.startswith("CAPTION") and not is_page:
            dialogs[name].append(("its title", line.split('"')[1]))
        elif match := label.match(line):
            dialogs[name].append((match[2], match[1].replace('""', '"')))
    return dialogs


def product_version():
    return (ROOT / "package/version.txt").read_text("utf-8").split()[0]


class Labels:
    """The texts of the driver in one language. A key that no language file has is none."""

    def __init__(self, suffix, files, driver_texts):
        self.own = files.get(suffix, {})
        self.files, self.driver_texts = files, driver_texts

    def text(self, key, sections, where):
        key = key.strip()
        if key == ":version":
            return product_version()
        if key.startswith("="):  # one that is English for every user
            if f'"{key[1:]}' not in self.driver_texts:
                fault(f"{where}: the driver has no text \"{key[1:]}\"")
            return as_shown(key[1:])
        if "|" in key:
            section, key = key.split("|", 1)
            sections = [section]
        for section in sections:
            if any(key in file.get(section, {}) for file in self.files.values()):
                return as_shown(self.own.get(section, {}).get(key, key))
        fault(f"{where}: no key \"{key}\" in {' '.join(sections)}")
        return key


def as_shown(text):
    """A label without the mark of its access key, the colon and what a number goes in for."""
    text = re.sub(r"\(&\w\)", "", text)
    text = re.sub(r"&(\w)", r"\1", text)
    return text.replace("%d", "…").rstrip(" :：")


# ---- Pages --------------------------------------------------------------------------------------


class Page:
    """A topic in one language: blocks as (kind, content), separated by empty lines in the source.

    # title               the first line, after a line "index: words; separated"
    ## heading
    - item                a list; 1. item a numbered one; lines that are indented go on
    term                  a list of terms, each with its explanation behind it
    : explanation
    | cell | cell |       a table, the first line its head
    ![name]               the picture of that name
    > note
    """

    def __init__(self, suffix, topic, labels):
        self.topic, self.language, self.labels = topic, LANGUAGES[suffix], labels
        self.where = f"{suffix}/{topic.name}.txt"
        self.keys, self.links, self.words, self.terms, self.blocks = set(), [], [], [], []
        text = (HELP / suffix / f"{topic.name}.txt").read_text("utf-8")
        for block in re.split(r"\n\s*\n", text.strip()):
            self.read(block.split("\n"))
        kinds = [kind for kind, _ in self.blocks]
        if kinds[:1] != ["h1"]:
            fault(f"{self.where}: no title")
        self.title = self.plain(self.blocks[0][1]) if self.blocks else topic.name

    def read(self, lines):
        if lines[0].startswith("index:"):
            self.words = [self.plain(word) for word in lines.pop(0)[6:].split(";") if word.strip()]
        if not lines:
            return
        first = lines[0]
        if match := re.match(r"(#+) (.*)", first):
            self.blocks.append((f"h{len(match[1])}", match[2]))
        elif match := re.fullmatch(r"!\[([\w-]+)\]", first):
            self.blocks.append(("picture", match[1]))
        elif first.startswith("- "):
            self.blocks.append(("ul", self.items(lines, r"- ")))
        elif re.match(r"\d+\. ", first):
            self.blocks.append(("ol", self.items(lines, r"\d+\. ")))
        elif first.startswith("| "):
            self.blocks.append(("table", [row.strip("| ").split(" | ") for row in lines]))
        elif first.startswith("> "):
            self.blocks.append(("note", self.joined(line.lstrip("> ") for line in lines)))
        elif any(line.startswith(": ") for line in lines):
            self.blocks.append(("dl", self.terms_of(lines)))
        else:
            self.blocks.append(("p", self.joined(lines)))
        self.note_references(" ".join(lines))

    def joined(self, lines):
        return self.language.joint.join(line.strip() for line in lines)

    def items(self, lines, mark):
        items = []
        for line in lines:
            if match := re.match(mark, line):
                items.append([line[match.end():]])
            else:
                items[-1].append(line)
        return [self.joined(item) for item in items]

    def terms_of(self, lines):
        pairs = []
        for line in lines:
            if line.startswith(": "):
                pairs[-1][1].append(line[2:])
            elif line.startswith(" "):
                pairs[-1][1].append(line)
            else:
                pairs.append((line.strip(), []))
        for term, explanation in pairs:
            if not explanation:
                fault(f"{self.where}: nothing said on {term}")
            self.terms += [self.label(key) for key in re.findall(r"\{([^{}]+)\}", term)]
        return [(term, self.joined(explanation)) for term, explanation in pairs]

    def note_references(self, text):
        for key in re.findall(r"\{([^{}]+)\}", text):
            self.keys.add(key.strip())
            self.label(key)  # which reports one that does not exist
        self.links += re.findall(r"\[[^\[\]]*\]\(([\w-]+)\)", text)

    def label(self, key):
        return self.labels.text(key, self.topic.sections, self.where)

    def plain(self, text):
        return re.sub(r"\{([^{}]+)\}", lambda match: self.label(match[1]), text).strip()

    def shape(self):
        """What translations have in common: the kinds of blocks and how long each list is."""
        return [(kind, content if kind == "picture" else
                 0 if isinstance(content, str) else len(content))
                for kind, content in self.blocks]

    def inline(self, text, titles):
        def key(match):
            return f'<b>{html.escape(self.label(html.unescape(match[1])))}</b>'

        def link(match):
            shown = match[1] or html.escape(titles[match[2]])
            return f'<a href="{match[2]}.html">{shown}</a>'

        text = html.escape(text, quote=False)
        text = re.sub(r"`([^`]+)`", r"<code>\1</code>", text)
        text = re.sub(r"\*\*(.+?)\*\*", r"<b>\1</b>", text)
        text = re.sub(r"\{([^{}]+)\}", key, text)
        return re.sub(r"\[([^\[\]]*)\]\(([\w-]+)\)", link, text)

    def body(self, titles, pictures):
        def rows(content, tag):
            return "".join(f"<{tag}>{self.inline(item, titles)}</{tag}>\n" for item in content)

        for kind, content in self.blocks:
            if kind in ("ul", "ol"):
                yield f"<{kind}>\n{rows(content, 'li')}</{kind}>"
            elif kind == "dl":
                pairs = "".join(f"<dt>{self.inline(term, titles)}</dt>\n"
                                f"<dd>{self.inline(text, titles)}</dd>\n" for term, text in content)
                yield f"<dl>\n{pairs}</dl>"
            elif kind == "table":
                lines = "".join(f"<tr>{rows(row, 'td' if number else 'th')}</tr>\n"
                                for number, row in enumerate(content))
                yield f"<table>\n{lines}</table>"
            elif kind == "picture":
                if content in pictures:
                    yield f'<p><img src="{content}.png" alt="{html.escape(self.title)}"></p>'
            elif kind == "note":
                yield f'<p class="note">{self.inline(content, titles)}</p>'
            else:
                yield f"<{kind}>{self.inline(content, titles)}</{kind}>"

    def document(self, titles, pictures):
        return ('<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01//EN" "http://www.w3.org/TR/html4/strict.dtd">\n'
                "<html>\n<head>\n"
                f'<meta http-equiv="Content-Type" content="text/html; charset={self.language.charset}">\n'
                f"<title>{html.escape(self.title)}</title>\n"
                '<link rel="stylesheet" type="text/css" href="help.css">\n'
                "</head>\n<body>\n" + "\n".join(self.body(titles, pictures)) + "\n</body>\n</html>\n")


# ---- Checks -------------------------------------------------------------------------------------


def check_dialogs(topics, unseen, english):
    """Every dialog has a topic, and every label that users see is in it."""
    dialogs = read_dialogs()
    explained = {name: topic for topic in topics for name in topic.dialogs}
    for name in unseen | set(explained):
        controls = {control for labels in dialogs.values() for control, _ in labels}
        if name not in controls and name not in dialogs:
            fault(f"topics.txt: kpdui.rc has no {name} with a label")
    for name, labels in dialogs.items():
        if name in unseen:
            continue
        if name not in explained:
            fault(f"topics.txt: no topic for {name}")
            continue
        page = english.get(explained[name].name)
        for control, label in labels:
            if page and control not in unseen and label.strip() not in page.keys:
                fault(f"{page.where}: nothing on {control}, {{{label}}}")


def check_language(suffix, pages, english, names):
    for path in sorted((HELP / suffix).iterdir()):
        if path.stem not in names:
            fault(f"{suffix}/{path.name}: not in topics.txt")
    for name in names:
        if name not in pages:
            fault(f"{suffix}/{name}.txt is not there")
            continue
        page = pages[name]
        for link in page.links:
            if link not in names:
                fault(f"{page.where}: no topic {link}")
        if name in english and page is not english[name]:
            for key in sorted(page.keys ^ english[name].keys):
                fault(f"{page.where}: {{{key}}} is not in both this and the English topic")
            if page.shape() != english[name].shape():
                fault(f"{page.where}: not the blocks of the English topic")


def read_help(wanted):
    """The pages of every wanted language that has topics, checked."""
    topics, unseen = read_topics()
    files = {suffix: file for suffix in LANGUAGES if (file := read_language_file(suffix))}
    driver_texts = read_driver_texts()
    help_texts = {}
    for suffix in LANGUAGES:
        if suffix not in wanted and suffix != "Eng":
            continue
        if not (HELP / suffix).is_dir():
            print(f"Mv{suffix}Card.chm: no topics yet")
        elif suffix != "Eng" and suffix not in files:
            print(f"Mv{suffix}Card.chm: no language file mv{suffix}kpd.ini")
        else:
            labels = Labels(suffix, files, driver_texts)
            help_texts[suffix] = {topic.name: Page(suffix, topic, labels) for topic in topics
                                  if (HELP / suffix / f"{topic.name}.txt").exists()}
    for suffix, pages in help_texts.items():
        check_language(suffix, pages, help_texts["Eng"], [topic.name for topic in topics])
    check_dialogs(topics, unseen, help_texts["Eng"])
    return topics, {suffix: help_texts[suffix] for suffix in help_texts if suffix in wanted}


# ---- The compiled file --------------------------------------------------------------------------


def make_pictures(kpdtool, language, folder):
    """Pictures of the sheet's pages, named as their topics."""
    for script, printer, pages in SESSIONS:
        with tempfile.TemporaryDirectory() as state:
            state = pathlib.Path(state)
            shutil.copy(ROOT / "tools" / "samples" / "printer.txt", state / "printer.txt")
            (state / "designer.txt").write_text(DESIGNER)
            subprocess.run([kpdtool, "sheet", *printer, "--language", language.tool,
                            "--device", state / "printer.txt", "--designer", state / "designer.txt",
                            "--script", HELP / "sessions" / script, "--pictures", state / "pages"],
                           stdout=subprocess.DEVNULL)  # what fails it says itself
            for page in pages:
                picture = state / "pages" / f"{page}.png"
                if picture.exists():
                    shutil.copy(picture, folder)


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
            parameters += [("Name", page.title), ("Local", f"{page.topic.name}.html")]
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
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        wanted = {content for page in pages.values() for kind, content in page.blocks if kind == "picture"}
        if kpdtool:
            make_pictures(kpdtool, language, folder)
        pictures = {path.stem for path in folder.glob("*.png")}
        if kpdtool and wanted - pictures:
            fault(f"Mv{suffix}Card.chm: no picture {' '.join(sorted(wanted - pictures))}")
        titles = {name: page.title for name, page in pages.items()}

        def write(name, text, errors="strict"):
            (folder / name).write_bytes(text.encode(language.codec, errors))

        for name, page in pages.items():
            write(f"{name}.html", page.document(titles, pictures), "xmlcharrefreplace")
        shutil.copy(HELP / "help.css", folder)
        write("help.hhc", contents(topics, pages))
        write("help.hhk", index(pages))
        files = [f"{name}.html" for name in pages] + ["help.css"] + sorted(f"{name}.png" for name in pictures)
        write("help.hhp", project(suffix, language, titles["welcome"], files))
        done = subprocess.run(["chmcmd", "help.hhp"], cwd=folder, capture_output=True, text=True, errors="replace")
        if done.returncode != 0 or not (folder / "help.chm").exists():
            fault(f"Mv{suffix}Card.chm: chmcmd failed\n{done.stdout}{done.stderr}")
            return
        name = f"Mv{suffix}Card.chm"
        (out / name).write_bytes(without_times((folder / "help.chm").read_bytes()))
        print(f"{name}: {len(pages)} topics, {len(pictures)} pictures")


def main():
    parser = argparse.ArgumentParser(description="Builds the driver's help files.")
    parser.add_argument("--out", type=pathlib.Path, help="the folder that the files go to")
    parser.add_argument("--kpdtool", type=pathlib.Path, help="the tool that takes the dialogs' pictures (default: none)")
    parser.add_argument("--languages", default=",".join(LANGUAGES), help="their suffixes (default: all)")
    parser.add_argument("--check", action="store_true", help="check the sources and build nothing")
    options = parser.parse_args()
    if not options.check and not options.out:
        parser.error("--out or --check is needed")
    if not options.check and not shutil.which("chmcmd"):
        parser.error("the compiler chmcmd is not installed (Debian's fp-utils)")
    topics, languages = read_help(options.languages.split(","))
    if not faults and not options.check:
        options.out.mkdir(parents=True, exist_ok=True)
        for suffix, pages in languages.items():
            compile_help(suffix, topics, pages, options.kpdtool and options.kpdtool.resolve(), options.out)
    for text in dict.fromkeys(faults):
        print(text, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
