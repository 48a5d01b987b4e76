#!/usr/bin/env python3
"""Builds the two catalogue files from their readable sources in data/.

  data/languages.tsv     the sixteen languages: column name, own name, fonts, character set
  data/translations.txt  one block per key with a text for every language

Writes data/TmBvCacheLanguages.xml and data/TmBvCacheLanguageFontDetails.xml in the XML
persistence format of a recordset (schema section, then one z:row per record with the values
as attributes). With --check it writes nothing and fails when the sources break a rule or the
XML files are not what the sources give.
"""

import argparse
import re
import sys
from pathlib import Path

LANGUAGE_COUNT = 16
HINT_MARK = re.compile(r"^#\s*hint:\s*(\S)\b")
PLACEHOLDER = re.compile(r"%%[1-4]")

NAMESPACES = (
    'xmlns:s="uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882"\n'
    '\txmlns:dt="uuid:C2F41010-65B3-11d1-A29F-00AA00C14882"\n'
    '\txmlns:rs="urn:schemas-microsoft-com:rowset"\n'
    '\txmlns:z="#RowsetSchema"'
)


class SourceError(Exception):
    pass


class Language:
    def __init__(self, number, column, own_name, font, fixed_font, char_set):
        self.number = number
        self.column = column
        self.own_name = own_name
        self.font = font
        self.fixed_font = fixed_font
        self.char_set = char_set


class Key:
    def __init__(self, code, line):
        self.code = code
        self.line = line
        self.hint = None
        self.texts = {}


def read_languages(path):
    languages = []
    for number, raw in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not raw.strip() or raw.startswith("#"):
            continue
        fields = raw.split("\t")
        if len(fields) != 6:
            raise SourceError(f"{path}:{number}: expected 6 tab-separated fields")
        lang_number, column, own_name, font, fixed_font, char_set = fields
        if int(lang_number) != len(languages):
            raise SourceError(f"{path}:{number}: language {lang_number} out of order")
        if not re.fullmatch(r"[A-Za-z_][A-Za-z0-9_.-]*", column):
            raise SourceError(f"{path}:{number}: column name {column!r} is not an XML name")
        languages.append(Language(len(languages), column, own_name, font, fixed_font,
                                  int(char_set)))
    if len(languages) != LANGUAGE_COUNT:
        raise SourceError(f"{path}: {len(languages)} languages, expected {LANGUAGE_COUNT}")
    return languages


def read_translations(path, columns):
    keys = []
    current = None
    for number, raw in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        where = f"{path}:{number}"
        if not raw.strip():
            continue
        if raw.startswith("#"):
            hint = HINT_MARK.match(raw)
            if hint and current is not None:
                current.hint = hint.group(1)
            continue
        if raw.startswith("[") and raw.endswith("]"):
            code = raw[1:-1]
            if not code or code.startswith("@") or " &" in code:
                raise SourceError(f"{where}: {code!r} is not a catalogue code")
            if any(k.code == code for k in keys):
                raise SourceError(f"{where}: key {code} appears twice")
            current = Key(code, number)
            keys.append(current)
            continue
        column, sep, text = raw.partition(" = ")
        if not sep or current is None:
            raise SourceError(f"{where}: expected '[CODE]' or 'lang = text'")
        if column not in columns:
            raise SourceError(f"{where}: unknown language column {column!r}")
        if column in current.texts:
            raise SourceError(f"{where}: {current.code} has two {column} texts")
        current.texts[column] = text
    return keys


def problems_of(keys, columns):
    """Every rule a translator can break, as readable lines."""
    found = []
    for key in keys:
        english = key.texts.get(columns[0], "")
        wanted = sorted(set(PLACEHOLDER.findall(english)))
        for column in columns:
            text = key.texts.get(column)
            where = f"{key.code} [{column}]"
            if text is None or not text.strip():
                found.append(f"{where}: text missing")
                continue
            if text != text.strip():
                found.append(f"{where}: blank at the start or end")
            if key.code.startswith("&") or key.code.endswith("&"):
                if "&" not in text:
                    found.append(f"{where}: no '&' access key")
            if sorted(set(PLACEHOLDER.findall(text))) != wanted:
                found.append(f"{where}: placeholders differ from English {wanted}")
            if key.hint and key.hint.upper() not in text.replace("&", "").upper():
                found.append(f"{where}: hint letter {key.hint} does not occur")
    return found


def attribute(value):
    return (value.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")
            .replace('"', "&quot;").replace("\t", "&#9;").replace("\n", "&#10;")
            .replace("\r", "&#13;"))


def schema_column(name, number, kind, length):
    if kind == "int":
        datatype = ('<s:datatype dt:type="int" dt:maxLength="4" rs:precision="10"'
                    ' rs:fixedlength="true" rs:maybenull="false"/>')
        flags = ""
    else:
        datatype = f'<s:datatype dt:type="string" dt:maxLength="{length}"/>'
        flags = ' rs:nullable="true" rs:write="true"'
    return (f'\t\t<s:AttributeType name="{name}" rs:number="{number}"{flags}>\n'
            f"\t\t\t{datatype}\n"
            f"\t\t</s:AttributeType>\n")


def rowset(columns, rows):
    """columns: (name, kind, length) in order; rows: lists of values in the same order."""
    out = [f"<xml {NAMESPACES}>\n", '<s:Schema id="RowsetSchema">\n',
           '\t<s:ElementType name="row" content="eltOnly" rs:updatable="true">\n']
    for number, (name, kind, length) in enumerate(columns, 1):
        out.append(schema_column(name, number, kind, length))
    out.append('\t\t<s:extends type="rs:rowbase"/>\n\t</s:ElementType>\n</s:Schema>\n<rs:data>\n')
    for row in rows:
        values = " ".join(f'{name}="{attribute(str(value))}"'
                          for (name, _, _), value in zip(columns, row))
        out.append(f"\t<z:row {values}/>\n")
    out.append("</rs:data>\n</xml>\n")
    return "".join(out)


def catalogue_xml(keys, languages):
    columns = [("ID", "int", 4), ("Code", "string", 50)]
    columns += [(lang.column, "string", 255) for lang in languages]
    rows = [[number, key.code] + [key.texts[lang.column] for lang in languages]
            for number, key in enumerate(keys, 1)]
    return rowset(columns, rows)


def details_xml(languages):
    columns = [("ID", "int", 4), ("KeyID", "string", 50), ("Value", "string", 255)]
    rows = []
    for lang in languages:
        prefix = f"{lang.number:02d}"
        for suffix, value in (("_UserName", lang.own_name), ("_Font", lang.font),
                              ("_FontFixed", lang.fixed_font), ("_F1CharSet", lang.char_set)):
            rows.append([len(rows) + 1, prefix + suffix, value])
    return rowset(columns, rows)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--data", type=Path, default=Path(__file__).resolve().parent.parent / "data",
                        help="folder with the sources and the catalogue files")
    parser.add_argument("--check", action="store_true",
                        help="write nothing; fail when the XML files are out of date")
    args = parser.parse_args()

    try:
        languages = read_languages(args.data / "languages.tsv")
        columns = [lang.column for lang in languages]
        keys = read_translations(args.data / "translations.txt", columns)
    except (OSError, ValueError, SourceError) as error:
        print(error, file=sys.stderr)
        return 1
    problems = problems_of(keys, columns)
    for problem in problems:
        print(problem, file=sys.stderr)
    if problems:
        return 1

    outputs = {
        args.data / "TmBvCacheLanguages.xml": catalogue_xml(keys, languages),
        args.data / "TmBvCacheLanguageFontDetails.xml": details_xml(languages),
    }
    stale = []
    for path, text in outputs.items():
        current = path.read_text(encoding="utf-8") if path.exists() else None
        if current == text:
            continue
        if args.check:
            stale.append(path.name)
        else:
            path.write_text(text, encoding="utf-8", newline="\n")
            print(f"wrote {path.name}")
    for name in stale:
        print(f"{name} is out of date: run scripts/make_catalogues.py", file=sys.stderr)
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main())
