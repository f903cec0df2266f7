"""The faults that can be planted in a line of C++, found by its text only."""
import re

# Each token and the mistakes that could be made in its place. Binary operators have blanks around them, brackets of
# templates have none.
SWAPS = [(re.compile(pattern), others) for pattern, others in [
    (r" == ", [" != "]), (r" != ", [" == "]), (r" < ", [" <= ", " >= "]), (r" <= ", [" < ", " > "]),
    (r" > ", [" >= ", " <= "]), (r" >= ", [" > ", " < "]), (r" && ", [" || "]), (r" \|\| ", [" && "]),
    (r" \+ ", [" - "]), (r" - ", [" + "]), (r" \* ", [" / "]), (r" / ", [" * "]), (r" % ", [" / "]),
    (r" \+= ", [" -= "]), (r" -= ", [" += "]), (r" & ", [" | "]), (r" \| ", [" & "]),
    (r"\+\+", ["--"]), (r"(?<!-)--", ["++"]),
    (r"\btrue\b", ["false"]), (r"\bfalse\b", ["true"]), (r"!(?=[\w(])", [""]),
    (r"\bmin\b", ["max"]), (r"\bmax\b", ["min"]), (r"\bfront\b", ["back"]), (r"\bback\b", ["front"]),
    (r"\bany_of\b", ["all_of"]), (r"\ball_of\b", ["any_of"]), (r"\bnone_of\b", ["any_of"]),
    (r"\bstarts_with\b", ["ends_with"]), (r"\bends_with\b", ["starts_with"]),
    (r"\bbreak;", [";"]), (r"\bcontinue;", [";"]),
]]
NUMBER = re.compile(r"(?<![\w.'])(0x[0-9A-Fa-f]+|\d+)(?=[uUlL]*\b)(?![\w']*[.'])")
TEXT = re.compile(r'"((?:[^"\\]|\\.)*)"')
CONDITION = re.compile(r"\b(if|while) \((.*)\)( \{| [\w*].*;)?$")
# Lines without code to run: they declare, include, open or close something.
DECLARATION = re.compile(r"\s*(#|using\b|namespace\b|template\b|struct\b|class\b|enum\b|friend\b|static_assert\b|"
                         r"extern\b|typedef\b|public:|private:|protected:|case\b.*:$|default:$|[{}();]*$)")
STATEMENT = re.compile(r"\s*(?!return\b|else\b|if\b|for\b|while\b|do\b|switch\b|delete\b|const\b|static\b|auto\b|"
                       r"constexpr\b|using\b|break;|continue;)[\w:*>.\-\[\]]+(\(| [-+*/|&^]?= |\+\+|--).*;$")


def blank_out(line):
    """The line with its string literals and its comment blanked. Positions of operators stay the same."""
    line = TEXT.sub(lambda found: '"' + "_" * len(found.group(1)) + '"', line)
    line = re.sub(r"'(?:[^'\\]|\\.)'", lambda found: "'" + "_" * (len(found.group()) - 2) + "'", line)
    comment = line.find("//")
    return line if comment < 0 else line[:comment].rstrip()


def is_balanced(text):
    depth = 0
    for sign in text:
        depth += {"(": 1, ")": -1}.get(sign, 0)
        if depth < 0:
            return False
    return depth == 0


def faults_of(line, begins_statement):
    """The line with each fault in turn. `begins_statement`: the line before ends a statement."""
    code = blank_out(line)
    if not code.strip() or DECLARATION.match(code):
        return []
    found = []

    def put(begin, end, instead):
        found.append(line[:begin] + instead + line[end:])

    for pattern, others in SWAPS:
        for at in pattern.finditer(code):
            for other in others:
                put(at.start(), at.end(), other)
    for at in NUMBER.finditer(code):
        octal = re.fullmatch(r"0\d+", at.group())
        number = int(at.group(), 8 if octal else 0)
        for other in (number + 1, number - 1):
            if other >= 0:
                put(at.start(), at.end(), f"0{other:o}" if octal else str(other))
    for at in TEXT.finditer(code):
        put(at.end() - 1, at.end() - 1, "~")
        if at.group(1):
            put(at.start(1), at.end(1), "")
    condition = CONDITION.search(code)
    if condition and is_balanced(condition.group(2)):
        inside = line[condition.start(2):condition.end(2)]
        put(condition.start(2), condition.end(2), inside if ";" in inside else f"!({inside})")
    if begins_statement and STATEMENT.match(code) and is_balanced(code):
        put(len(code) - len(code.lstrip()), len(code), ";")
    return [fault for fault in dict.fromkeys(found) if fault != line]


def faults_in(lines):
    """Pairs: the number of a line, from 0, and the line with a fault."""
    before = ";"
    in_routine_or_table = []
    for number, line in enumerate(lines):
        code = blank_out(line).strip()
        in_routine_or_table += [(number, fault) for fault in faults_of(line, before[-1] in ";{}:")]
        before = code or before
    return in_routine_or_table
