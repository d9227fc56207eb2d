"""What the help and the manuals are made from: documents of a few kinds of blocks, one text file each,
in a folder a language.

A document names controls by their English keys in braces, which become the labels that the driver's
dialogs have in that language, so documents and dialogs agree. `documents.txt` of a set of documents
says in which sections of the language file a document's keys are looked up and which dialogs of
kpdui.rc it explains. Reading checks all of this; what is wrong is gathered in `faults`.
"""
import argparse
import html
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from build_package import SHIPPED_SETUP_FILE, read_version, setup_file

PACKAGE = pathlib.Path(__file__).resolve().parent
ROOT = PACKAGE.parent


class Language:
    """A language that the driver has a help file's prefix for. What the help's viewer shows outside
    pages it takes in the code page of the file's locale, so all help is written in that."""

    def __init__(self, tag, locale, codec, charset, spaced=True):
        self.tag, self.locale, self.codec, self.charset = tag, locale, codec, charset
        self.joint = " " if spaced else ""


LANGUAGES = {
    "Eng": Language("en", 0x0409, "cp1252", "windows-1252"),
    "Ger": Language("de", 0x0407, "cp1252", "windows-1252"),
    "Jpn": Language("ja", 0x0411, "cp932", "shift_jis", spaced=False),
    "Frn": Language("fr", 0x040C, "cp1252", "windows-1252"),
    "Spn": Language("es", 0x0C0A, "cp1252", "windows-1252"),
    "Prt": Language("pt", 0x0416, "cp1252", "windows-1252"),
    "Ita": Language("it", 0x0410, "cp1252", "windows-1252"),
    "Pol": Language("pl", 0x0415, "cp1250", "windows-1250"),
    "Rus": Language("ru", 0x0419, "cp1251", "windows-1251"),
    "Chs": Language("zh-CN", 0x0804, "gbk", "gb2312", spaced=False),
    "Cht": Language("zh-TW", 0x0404, "cp950", "big5", spaced=False),
    "Krn": Language("ko", 0x0412, "cp949", "ks_c_5601-1987"),
}

faults = []


def fault(text):
    faults.append(text)


# ---- What the sources refer to ------------------------------------------------------------------


class Document:
    """A line of documents.txt."""

    def __init__(self, depth, name, sections, dialogs):
        self.depth, self.name, self.sections, self.dialogs = depth, name, sections, dialogs


def read_list(folder):
    """The documents in their order, what no user sees, and what need not be explained."""
    documents, unseen, plain = [], set(), set()
    for line in (folder / "documents.txt").read_text("utf-8").splitlines():
        words = line.split()
        if not words or line.startswith("#"):
            continue
        if words[0] in ("unseen", "plain"):
            (unseen if words[0] == "unseen" else plain).update(words[1:])
            continue
        dialogs = [word for word in words[1:] if word.startswith("IDD_")]
        depth = (len(line) - len(line.lstrip())) // 2
        documents.append(Document(depth, words[0], words[1:len(words) - len(dialogs)], dialogs))
    return documents, unseen, plain


def read_language_file(suffix):
    """Sections of keys and texts, blanks around them left out as the platform does."""
    path = PACKAGE / "languages" / f"mv{suffix}kpd.ini"
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


class Dialog:
    """A dialog of kpdui.rc: its title and its controls' labels, (name, English text)."""

    def __init__(self):
        self.title, self.labels = "", []


def read_dialogs():
    label = re.compile(r'\s*\w*(?:TEXT|BOX|BUTTON)\s+"((?:[^"]|"")+)",\s*(\w+),')
    dialogs, dialog, is_page = {}, None, True
    for line in (ROOT / "resources" / "kpdui.rc").read_text("utf-8").splitlines():
        if match := re.match(r"(IDD_\w+) DIALOGEX", line):
            dialog = dialogs[match[1]] = Dialog()
        elif line.startswith("STYLE"):
            is_page = "PAGE_STYLE" in line
        elif line.startswith("CAPTION"):
            dialog.title = line.split('"')[1]
            if not is_page:  # a page's title is that of its tab
                dialog.labels.append(("its title", dialog.title))
        elif match := label.match(line):
            dialog.labels.append((match[2], match[1].replace('""', '"')))
    return dialogs


class Labels:
    """The texts of the driver in one language. A key that no language file has is none."""

    def __init__(self, suffix, files, driver_texts):
        self.own = files.get(suffix, {})
        self.files, self.driver_texts = files, driver_texts

    def text(self, key, sections, where):
        key = key.strip()
        if key == ":version":
            return read_version()[0]
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
    """A document in one language: blocks as (kind, content), separated by empty lines in the source.

    # title               the first line, after a line "index: words; separated"
    ## heading
    - item                a list; 1. item a numbered one; lines that are indented go on
    term                  a list of terms, each with its explanation behind it
    : explanation
    | cell | cell |       a table, the first line its head
    ![name]               the picture of that name
        command           lines that stand as they are, indented by four blanks
    > note
    """

    def __init__(self, folder, suffix, document, labels):
        self.document, self.language, self.labels = document, LANGUAGES[suffix], labels
        self.where = f"{folder.name}/{suffix}/{document.name}.txt"
        self.keys, self.links, self.words, self.terms, self.blocks = set(), [], [], [], []
        text = (folder / suffix / f"{document.name}.txt").read_text("utf-8")
        for block in re.split(r"\n\s*\n", text.strip()):
            self.read(block.split("\n"))
        kinds = [kind for kind, _ in self.blocks]
        if kinds[:1] != ["h1"]:
            fault(f"{self.where}: no title")
        self.title = self.plain(self.blocks[0][1]) if self.blocks else document.name

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
        elif first.startswith("    "):
            self.blocks.append(("pre", [line[4:] for line in lines]))
            return  # no labels are meant here
        elif first.startswith("- "):
            self.blocks.append(("ul", self.items(lines, r"- ")))
        elif re.match(r"\d+\. ", first):
            self.blocks.append(("ol", self.items(lines, r"\d+\. ")))
        elif first.startswith("| "):
            self.blocks.append(("table", [[cell.strip() for cell in row.strip()[1:-1].split(" | ")] for row in lines]))
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
        return self.labels.text(key, self.document.sections, self.where)

    def plain(self, text):
        return re.sub(r"\{([^{}]+)\}", lambda match: self.label(match[1]), text).strip()

    def shape(self):
        """What translations have in common: the kinds of blocks and how long each list is."""
        return [(kind, content if kind in ("picture", "pre") else
                 0 if isinstance(content, str) else len(content))
                for kind, content in self.blocks]

    def pictures(self):
        return [content for kind, content in self.blocks if kind == "picture"]

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
                    yield f'<p class="picture"><img src="{content}.png" alt="{html.escape(self.title)}"></p>'
            elif kind == "pre":
                yield "<pre>" + html.escape("\n".join(content), quote=False) + "</pre>"
            elif kind == "note":
                yield f'<p class="note">{self.inline(content, titles)}</p>'
            else:
                yield f"<{kind}>{self.inline(content, titles)}</{kind}>"


# ---- Checks -------------------------------------------------------------------------------------


def check_dialogs(documents, unexplained, english, every_dialog):
    """The dialogs are explained, each label that users see."""
    dialogs = read_dialogs()
    explained = {name: document for document in documents for name in document.dialogs}
    for name in unexplained | set(explained):
        controls = {control for dialog in dialogs.values() for control, _ in dialog.labels}
        if name not in controls and name not in dialogs:
            fault(f"documents.txt: kpdui.rc has no {name} with a label")
    for name, dialog in dialogs.items():
        if name in unexplained:
            continue
        if name not in explained:
            if every_dialog:
                fault(f"documents.txt: nothing explains {name}")
            continue
        page = english.get(explained[name].name)
        for control, label in dialog.labels:
            if page and control not in unexplained and label.strip() not in page.keys:
                fault(f"{page.where}: nothing on {control}, {{{label}}}")


def check_language(folder, suffix, pages, english, names):
    """All documents are there, with the blocks and keys of the English ones."""
    for path in sorted((folder / suffix).iterdir()):
        if path.stem not in names:
            fault(f"{folder.name}/{suffix}/{path.name}: not in documents.txt")
    for name in names:
        if name not in pages:
            fault(f"{folder.name}/{suffix}/{name}.txt is not there")
            continue
        page = pages[name]
        for link in page.links:
            if link not in names:
                fault(f"{page.where}: no document {link}")
        if name in english and page is not english[name]:
            for key in sorted(page.keys ^ english[name].keys):
                fault(f"{page.where}: {{{key}}} is not in both this and the English document")
            if page.shape() != english[name].shape():
                fault(f"{page.where}: not the blocks of the English document")


def read_documents(folder, wanted, every_dialog):
    """The documents of a folder and, of English and each wanted language, its pages by the documents'
    names; checked, the other languages against English. `every_dialog` of the driver has to be
    explained, or those alone that documents.txt names."""
    documents, unseen, plain = read_list(folder)
    files = {suffix: file for suffix in LANGUAGES if (file := read_language_file(suffix))}
    driver_texts = read_driver_texts()
    texts = {}
    for suffix in dict.fromkeys(["Eng", *wanted]):
        labels = Labels(suffix, files, driver_texts)
        texts[suffix] = {document.name: Page(folder, suffix, document, labels)
                         for document in documents
                         if (folder / suffix / f"{document.name}.txt").exists()}
    for suffix, pages in texts.items():
        check_language(folder, suffix, pages, texts["Eng"], [document.name for document in documents])
    check_dialogs(documents, unseen | plain, texts["Eng"], every_dialog)
    return documents, texts


# ---- Sessions with the sheet ----------------------------------------------------------------------

DESIGNER = "dialog = accept 1\ncalls = no\n"


def run_session(kpdtool, script, printer, state, *further):
    """A session with the property sheet, over the sample printer and designer; its files are in the
    folder `state`. Gives what it printed."""
    # With the setup file in the driver directory a remote printer's About page tells the version.
    installed = state / "installed"
    for name in ("languages", "pictures"):
        shutil.copytree(PACKAGE / name, installed / name)
    (installed / SHIPPED_SETUP_FILE).write_text(setup_file([], *read_version()), "ascii")
    shutil.copy(ROOT / "tools" / "samples" / "printer.txt", state / "printer.txt")
    (state / "designer.txt").write_text(DESIGNER)
    done = subprocess.run([kpdtool, "sheet", *printer, "--device", state / "printer.txt",
                           "--designer", state / "designer.txt", "--package", installed, "--script", script,
                           *further],
                          stdout=subprocess.PIPE, text=True)
    if done.returncode != 0:  # why, it has said itself
        fault(f"{script}: failed")
    return done.stdout


def take_pictures(kpdtool, sessions, language, folder):
    """Pictures of dialogs, as `sessions` says: the script, its printer and which pictures."""
    for script, printer, names in sessions:
        if not names:
            continue
        with tempfile.TemporaryDirectory() as state:
            state = pathlib.Path(state)
            run_session(kpdtool, script, printer, state, "--language", language.tag,
                        "--pictures", state / "pages")
            for name in names:
                picture = state / "pages" / f"{name}.png"
                if picture.exists():
                    shutil.copy(picture, folder)


# ---- The programs ---------------------------------------------------------------------------------


def options_of(description, languages, compiler, package):
    """The command line that building help and manuals have in common."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--out", type=pathlib.Path, help="the folder that the files go to")
    parser.add_argument("--kpdtool", type=lambda path: pathlib.Path(path).resolve(),
                        help="the tool that takes the dialogs' pictures (default: none)")
    parser.add_argument("--languages", default=",".join(languages), help="their suffixes (default: all)")
    parser.add_argument("--check", action="store_true", help="check the sources and build nothing")
    options = parser.parse_args()
    options.languages = options.languages.split(",")
    if not options.check and not options.out:
        parser.error("--out or --check is needed")
    if not options.check and not shutil.which(compiler):
        parser.error(f"the program {compiler} is not installed (Debian's {package})")
    if not options.check:
        options.out.mkdir(parents=True, exist_ok=True)
    return options


def report_faults():
    """The program's exit status."""
    for text in dict.fromkeys(faults):
        print(text, file=sys.stderr)
    return 1 if faults else 0
