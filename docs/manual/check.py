"""Checks the manual: the same pages, sections and pictures in every language, no dead link in the
built pages, in bold nothing but what the program itself shows in that language, and no key or
option left out."""
import argparse
import html
import re
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from build import LANGUAGES, SOURCE, page_order

INTERFACE = SOURCE.parent.parent / "ui"
# Names that the program shows as they are in any language.
UNTRANSLATED = {"English", "Русский", "KLV"}


def outline(language):
    """What has to be alike in all languages: the pages with their pictures and sections."""
    pages = {}
    for name in page_order(language):
        text = (SOURCE / language / f"{name}.md").read_text(encoding="utf-8")
        pages[name] = (re.findall(r"\]\((images/[^)]*)\)", text),
                       len(re.findall(r"^## ", text, re.MULTILINE)))
    return pages


def unused_files(language, pages):
    used = {f"{name}.md" for name in pages}
    used.update(picture for pictures, _ in pages.values() for picture in pictures)
    folder = SOURCE / language
    files = {path.relative_to(folder).as_posix() for path in folder.rglob("*.*")}
    return [f"{language}/{name}: no page leads there" for name in sorted(files - used)]


def broken_pages(folder):
    for page in sorted(folder.rglob("*.html")):
        text = page.read_text(encoding="utf-8")
        if "**" in text or "](" in text:
            yield f"{page.relative_to(folder)}: Markdown was left as it is"
        for target in re.findall(r'(?:href|src)="([^"]*)"', text):
            if "://" not in target and not (page.parent / target.split("#")[0]).is_file():
                yield f"{page.relative_to(folder)}: {target} is missing"


def in_one_line(text):
    """Without line breaks and the marks of keys in menus."""
    return " ".join(re.sub(r"<br>|\\n", " ", re.sub(r"&(?=\w)", "", text)).split())


def shown_texts(language):
    """Patterns of all that the program shows, with anything in the place of its arguments."""
    texts = set(UNTRANSLATED)
    tag = "source" if language == "en" else "translation"
    translation = ElementTree.parse(INTERFACE / "translations/klv_ru.ts")
    units = [unit.findtext(tag) for unit in translation.iterfind("context[name='Unit']/message")]
    # A prefix is put before its unit by the program.
    texts.update(prefix + unit for prefix in units for unit in units)
    for message in translation.iter("message"):
        shown = message.find(tag)
        texts.update([shown.text] if shown.text and shown.text.strip()
                     else [form.text for form in shown.iter("numerusform")])
    suffix = "" if language == "en" else "_ru"
    for picture in ("Int", "Ext"):
        texts.update(re.findall(r">([^<]+)</text>",
                                (INTERFACE / f"images/{picture}{suffix}.svg").read_text("utf-8")))
    return [re.compile(re.sub(r"%(?:\d|n)", ".+", re.escape(in_one_line(text))))
            for text in texts if text and re.sub(r"%\d|%n|\W", "", text)]


def foreign_texts(language, pages):
    patterns = shown_texts(language)
    for name in pages:
        source = (SOURCE / language / f"{name}.md").read_text(encoding="utf-8")
        for bold in re.findall(r"\*\*(.+?)\*\*", source, re.DOTALL):
            text = in_one_line(html.unescape(bold))
            if not any(pattern.fullmatch(text) for pattern in patterns):
                yield f'{language}/{name}.md: the program does not show "{text}"'


def unsaid(language):
    """Keys of the window and options of the command line that their pages do not mention."""
    form = (INTERFACE / "mainwindow.ui").read_text(encoding="utf-8")
    options = (INTERFACE.parent / "app/start_options.cpp").read_text(encoding="utf-8")
    told = {"keys": re.findall(r'name="keys"><string[^>]*>([^<]+)<', form),
            "command-line": ["--" + name for name in re.findall(
                r'QCommandLineOption \w+\(\s*QStringLiteral\("([\w-]+)"\)', options)]}
    for name, words in told.items():
        text = (SOURCE / language / f"{name}.md").read_text(encoding="utf-8")
        yield from (f"{language}/{name}.md: {word} is missing" for word in words
                    if f"`{word}" not in text)


def differences(outlines):
    expected = outlines["en"]
    for language, pages in outlines.items():
        if list(pages) != list(expected):
            yield f"{language}: the pages are not those of the English manual"
        else:
            yield from (f"{language}/{name}.md: other pictures or sections than in English"
                        for name in pages if pages[name] != expected[name])


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("pages", type=Path, help="folder of the built pages")
    built = parser.parse_args().pages
    outlines = {language: outline(language) for language in LANGUAGES}
    faults = [*differences(outlines), *broken_pages(built)]
    for language, pages in outlines.items():
        faults += unused_files(language, pages)
        faults += foreign_texts(language, pages)
        faults += unsaid(language)
    sys.exit("\n".join(faults) if faults else 0)


if __name__ == "__main__":
    main()
