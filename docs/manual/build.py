"""Makes the manual from its Markdown: web pages in a folder, or one Windows help file of both
languages. The order of the pages is that of the links in each language's index.md."""
import argparse
import html
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

SOURCE = Path(__file__).resolve().parent
LANGUAGES = {
    "en": {"name": "English", "previous": "Previous", "next": "Next", "contents": "Contents"},
    "ru": {"name": "Русский", "previous": "Назад", "next": "Дальше", "contents": "Содержание"},
}
CONTENTS = "index"

PAGE = """<!DOCTYPE html>
<html lang="{language}">
<head>
<meta http-equiv="Content-Type" content="text/html; charset={charset}">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<link rel="stylesheet" type="text/css" href="{up}manual.css">
</head>
<body>
<div class="page">
{body}</div>
</body>
</html>
"""


class Page:
    """One subject in one language: its title, its HTML and the headings within it."""

    def __init__(self, language, name, converter):
        self.language, self.name = language, name
        source = SOURCE / language / f"{name}.md"
        converted = subprocess.run([converter, "-e", "table", "--to", "html", source],
                                   capture_output=True, check=True)
        self.sections = []
        body = re.sub(r"<h2>(.*?)</h2>", self._add_section, converted.stdout.decode())
        self.body = re.sub(r'href="([\w-]+)\.md"', r'href="\1.html"', body)
        self.title = plain(re.search(r"<h1>(.*?)</h1>", body).group(1))

    def _add_section(self, heading):
        anchor = f"s{len(self.sections) + 1}"
        self.sections.append((anchor, plain(heading.group(1))))
        return f'<h2 id="{anchor}">{heading.group(1)}</h2>'

    @property
    def path(self):
        return f"{self.language}/{self.name}.html"


def plain(fragment):
    return html.unescape(re.sub(r"<[^>]*>", "", fragment))


def page_order(language):
    """The names of a language's pages, the contents page first."""
    text = (SOURCE / language / f"{CONTENTS}.md").read_text(encoding="utf-8")
    return [CONTENTS, *dict.fromkeys(re.findall(r"\]\(([\w-]+)\.md\)", text))]


def navigation(pages, index):
    """Links to the neighbours, the contents and the same page in the other languages."""
    page, words = pages[index], LANGUAGES[pages[index].language]
    steps = []
    if index > 0:
        before = pages[index - 1]
        if index > 1:
            steps.append((f"{before.name}.html", f"← {before.title}", words["previous"]))
        steps.append((f"{CONTENTS}.html", words["contents"], words["contents"]))
    if index + 1 < len(pages):
        after = pages[index + 1]
        steps.append((f"{after.name}.html", f"{after.title} →", words["next"]))
    steps += [(f"../{code}/{page.name}.html", other["name"], other["name"])
              for code, other in LANGUAGES.items() if code != page.language]
    links = "\n".join(f'<a href="{target}" title="{html.escape(hint)}">{html.escape(text)}</a>'
                      for target, text, hint in steps)
    return f'<p class="navigation">\n{links}\n</p>\n'


def front_page(manual):
    lists = "".join(f'<h1 lang="{code}"><a href="{pages[0].path}">{html.escape(pages[0].title)}</a>'
                    "</h1>\n<ul>\n" + "".join(
                        f'<li><a href="{page.path}">{html.escape(page.title)}</a></li>\n'
                        for page in pages[1:]) + "</ul>\n" for code, pages in manual.items())
    return PAGE.format(language="en", charset="{charset}", title="KLV", up="", body=lists)


def write_pages(manual, folder, charset):
    """Characters that the character set lacks are written as character references."""
    def write(name, text):
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text.replace("{charset}", charset).encode(charset, "xmlcharrefreplace"))

    for language, pages in manual.items():
        for index, page in enumerate(pages):
            links = navigation(pages, index)
            write(page.path, PAGE.format(language=language, charset="{charset}",
                                         title=html.escape(page.title), up="../",
                                         body=links + page.body + links))
        shutil.copytree(SOURCE / language / "images", folder / language / "images",
                        dirs_exist_ok=True)
    write("index.html", front_page(manual))
    shutil.copy(SOURCE / "manual.css", folder)


def sitemap(entries):
    """A contents or index file of Windows help: (depth, name, target) each."""
    lines, depth = ['<html><head></head><body>'], 0
    for level, name, target in entries:
        lines += ["<ul>"] * (level - depth) + ["</ul>"] * (depth - level)
        depth = level
        lines.append(f'<li><object type="text/sitemap"><param name="Name" '
                     f'value="{html.escape(name)}"><param name="Local" value="{target}"></object>')
    return "\n".join(lines + ["</ul>"] * depth + ["</body></html>", ""])


def write_help_project(manual, folder, charset):
    contents, index = [], []
    for language, pages in manual.items():
        contents.append((1, LANGUAGES[language]["name"], pages[0].path))
        for page in pages[1:]:
            contents.append((2, page.title, page.path))
            index.append((1, page.title, page.path))
            for anchor, heading in page.sections:
                contents.append((3, heading, f"{page.path}#{anchor}"))
                keyword = re.sub(r"^\d+\. ", "", heading)
                index.append((1, f"{keyword} ({page.title})", f"{page.path}#{anchor}"))
    index.sort(key=lambda entry: entry[1].casefold())
    files = sorted(path.relative_to(folder).as_posix() for path in folder.rglob("*.*"))
    # In Russian's character set, whose lower half is English: the contents know only one.
    project = ["[OPTIONS]", "Compatibility=1.1 or later", "Compiled file=KLV.chm",
               "Contents file=KLV.hhc", "Index file=KLV.hhk", "Default topic=index.html",
               "Full-text search=Yes", "Binary TOC=No", "Binary Index=No",
               "Language=0x419 Russian", "Title=KLV", "Default Window=main", "", "[WINDOWS]",
               # Three panes with contents, index and search; hide, back, home and print.
               'main="KLV","KLV.hhc","KLV.hhk","index.html","index.html",,,,,0x62420,280,0x3046,'
               "[100,60,1100,800],,,,,,,0", "", "[FILES]", *files, ""]
    for name, text in (("KLV.hhc", sitemap(contents)), ("KLV.hhk", sitemap(index)),
                       ("KLV.hhp", "\n".join(project))):
        (folder / name).write_bytes(text.encode(charset, "xmlcharrefreplace"))


def build_help_file(manual, target, compiler):
    with tempfile.TemporaryDirectory() as temporary:
        folder = Path(temporary)
        write_pages(manual, folder, "windows-1251")
        write_help_project(manual, folder, "windows-1251")
        compiled = subprocess.run([compiler, "KLV.hhp"], cwd=folder, stdout=subprocess.PIPE,
                                  stderr=subprocess.STDOUT)
        if compiled.returncode != 0 or not (folder / "KLV.chm").exists():
            sys.exit(compiled.stdout.decode(errors="replace"))
        shutil.copy(folder / "KLV.chm", target)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--converter", default="cmark-gfm", help="Markdown converter")
    parser.add_argument("--html", type=Path, help="folder for the web pages; replaced")
    parser.add_argument("--chm", type=Path, help="Windows help file to make")
    parser.add_argument("--compiler", default="chmcmd", help="compiler of Windows help files")
    options = parser.parse_args()
    manual = {language: [Page(language, name, options.converter) for name in page_order(language)]
              for language in LANGUAGES}
    if options.html:
        shutil.rmtree(options.html, ignore_errors=True)
        write_pages(manual, options.html, "utf-8")
    if options.chm:
        build_help_file(manual, options.chm, options.compiler)


if __name__ == "__main__":
    main()
