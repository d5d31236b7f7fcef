"""Small changes of C++ source text, as scripts/mutate.sh tries them. Relies on the layout that
clang-format gives: blanks around binary operators and around comparisons, none in templates."""

import dataclasses
import re

TOKEN = re.compile(
    r"""(?P<skip>//[^\n]*|/\*.*?\*/|\s+|^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*)
      |(?P<string>"(?:[^"\\\n]|\\.)*")
      |(?P<char>'(?:[^'\\\n]|\\.[^'\n]*)')
      |(?P<number>(?:0[xX][0-9A-Fa-f']+|[0-9][0-9']*)[uUlL]*)
      |(?P<word>[A-Za-z_]\w*)
      |(?P<operator>\+\+|--|->|::|<<=|>>=|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|.)""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)

BINARY = {
    "<": ["<="], "<=": ["<"], ">": [">="], ">=": [">"], "==": ["!="], "!=": ["=="],
    "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
    "&": ["|"], "|": ["&"], "+=": ["-="], "-=": ["+="], "*=": ["/="], "|=": ["&="],
}
WORDS = {
    "true": "false", "false": "true", "min": "max", "max": "min",
    "any_of": "all_of", "all_of": "any_of", "front": "back", "back": "front",
    "upper_bound": "lower_bound", "lower_bound": "upper_bound", "find": "rfind", "rfind": "find",
    "Matched": "NotMatched", "NotMatched": "Matched",
    "isalpha": "isalnum", "isalnum": "isalpha",
}
LEVELS = {"error": "warning", "warning": "progress", "progress": "warning"}
NO_STATEMENT = {
    "using", "struct", "class", "enum", "namespace", "template", "static_assert", "typedef",
    "friend", "public", "private", "protected", "const", "constexpr", "static", "inline", "auto",
    "explicit", "volatile", "do", "return", "virtual", "extern",
}


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    begin: int

    @property
    def end(self):
        return self.begin + len(self.text)


@dataclasses.dataclass(frozen=True)
class Change:
    begin: int
    end: int
    after: str


def tokens_of(text):
    found = [Token(m.lastgroup, m.group(), m.start()) for m in TOKEN.finditer(text)]
    return [token for token in found if token.kind != "skip"]


def closing(tokens, opening):
    """The index of the bracket that closes the one at this index."""
    depth = 0
    for i in range(opening, len(tokens)):
        if tokens[i].kind == "operator":
            depth += tokens[i].text in "([{"
            depth -= tokens[i].text in ")]}"
            if depth == 0:
                return i
    raise ValueError("a bracket is not closed")


def spans_of(tokens, word):
    """The token ranges of statements that begin with this word and a bracket, up to its end."""
    return [(i, closing(tokens, i + 1)) for i, token in enumerate(tokens[:-1])
            if token.text == word and tokens[i + 1].text == "("]


def stands_alone(text, token):
    return text[token.begin - 1].isspace() and text[token.end].isspace()


def number_changes(token):
    digits = token.text.rstrip("uUlL")
    suffix = token.text[len(digits):]
    digits = digits.replace("'", "")
    value = int(digits, 0) if digits == "0" or not digits.startswith("0") or "x" in digits.lower() \
        else int(digits, 8)
    return [f"{value + 1}{suffix}"] + ([f"{value - 1}{suffix}"] if value > 0 else [])


def char_change(text):
    inner = text[1:-1]
    if inner == "\\0":
        return "'\\1'"
    # The next character may need a backslash.
    return "'~'" if inner.startswith("\\") or inner in "[&" else f"'{chr(ord(inner) + 1)}'"


def token_changes(text, tokens):
    loop_heads = spans_of(tokens, "for")
    for i, token in enumerate(tokens):
        previous = tokens[i - 1].text if i else ""
        following = tokens[i + 1].text if i + 1 < len(tokens) else ""
        after = []
        if token.kind == "number":
            after = number_changes(token)
        elif token.kind == "string":
            after = ['"?' + token.text[1:]]
        elif token.kind == "char":
            after = [char_change(token.text)]
        elif token.kind == "word" and previous == "::" and tokens[i - 2].text == "LogLevel":
            after = [LEVELS[token.text]]
        elif token.kind == "word" and previous == "::" and tokens[i - 2].text == "PropertyName":
            after = ["payload" if token.text != "payload" else "xmlFilename"]
        elif token.kind == "word" and token.text in WORDS and following != "=":
            after = [WORDS[token.text]]
        elif token.text in ("<<", ">>") and tokens[i + 1].kind == "number":
            after = [">>" if token.text == "<<" else "<<"]
        elif token.text in ("++", "--"):
            if not any(begin < i < end for begin, end in loop_heads):
                after = ["--" if token.text == "++" else "++"]
        elif token.text == "!":
            after = [""]
        elif token.text in BINARY and stands_alone(text, token):
            after = BINARY[token.text]
        for replacement in after:
            yield Change(token.begin, token.end, replacement)


def condition_changes(text, tokens):
    """Conditions negated, unless the change of their only operator does that."""
    for word in ("if", "while"):
        for first, last in spans_of(tokens, word):
            head = tokens[first + 2:last]
            separators = [t for t in head if t.text == ";"]
            begin = separators[-1].end if separators else head[0].begin
            condition = text[begin:tokens[last].begin]
            joined = re.search(r"&&|\|\|", condition)
            if not joined and re.search(r" [!=]= |^!", condition.lstrip()):
                continue
            yield Change(begin, tokens[last].begin, f"!({condition.strip()})")


def choice_changes(text, tokens):
    """The two values of a conditional expression exchanged."""
    for i, token in enumerate(tokens):
        if token.text != "?" or token.kind != "operator":
            continue
        depth, colon, end = 0, None, None
        for j in range(i + 1, len(tokens)):
            mark = tokens[j].text if tokens[j].kind == "operator" else ""
            if depth == 0 and (mark in (")", "]", "}", ";", ",") and mark):
                end = j
                break
            depth += mark in ("(", "[", "{", "?")
            depth -= mark in (")", "]", "}") or (mark == ":" and depth > 0)
            if mark == ":" and depth == 0 and colon is None:
                colon = j
        if colon is None or end is None:
            continue
        one = text[token.end:tokens[colon].begin].strip()
        other = text[tokens[colon].end:tokens[end].begin].strip()
        yield Change(token.end, tokens[end].begin, f" ({other}) : ({one})")


def statement_starts(tokens):
    heads = {last for word in ("if", "for", "while") for _, last in spans_of(tokens, word)}
    conditional = {last for _, last in spans_of(tokens, "if")}
    in_heads = {i for word in ("if", "for", "while") for first, last in spans_of(tokens, word)
                for i in range(first, last)}
    for i, token in enumerate(tokens[:-1]):
        if token.kind == "operator" and token.text in (";", "{", "}"):
            if i not in in_heads:
                yield i + 1, False
        elif i in heads:
            yield i + 1, i in conditional
        elif token.text == "else":
            yield i + 1, True
        elif token.text == ":" and tokens[i - 1].kind == "word" and \
                (tokens[i - 1].text == "default" or "case" in [t.text for t in tokens[i - 4:i]]):
            yield i + 1, False


def is_removable(text, tokens, start, end, is_conditional):
    first = tokens[start]
    if first.text == "return":
        return is_conditional
    if first.text in NO_STATEMENT or first.text in ("if", "for", "while", "switch", "case", "else"):
        return False
    if first.kind != "word" and first.text not in ("*", "++", "--"):
        return False
    is_declaration = r"(?:\w+::)*\w+(?:<[^;()]*>)?[*&]*\s+[&*]?\w+"
    statement = text[first.begin:tokens[end].begin]
    return not re.match(is_declaration, statement) and "{" not in statement.split("(")[0]


def statement_changes(text, tokens):
    """Statements removed; a return only where it depends on a condition."""
    for start, is_conditional in statement_starts(tokens):
        depth = 0
        for end in range(start, len(tokens)):
            mark = tokens[end].text if tokens[end].kind == "operator" else ""
            depth += mark in ("(", "[", "{") and mark != ""
            depth -= mark in (")", "]", "}") and mark != ""
            if depth < 0:
                break
            if mark == ";" and depth == 0:
                if is_removable(text, tokens, start, end, is_conditional):
                    yield Change(tokens[start].begin, tokens[end].end, ";")
                break


def without_assertions(text, tokens, changes):
    spans = [(tokens[first].begin, tokens[last].end)
             for first, last in spans_of(tokens, "static_assert")]
    return [change for change in changes
            if not any(begin <= change.begin < end for begin, end in spans)]


def find_changes(text):
    """All changes of a source text, each once, in the order of their places."""
    tokens = tokens_of(text)
    changes = set()
    for kind in (token_changes, condition_changes, choice_changes, statement_changes):
        changes.update(kind(text, tokens))
    changes = without_assertions(text, tokens, changes)
    return sorted(changes, key=lambda change: (change.begin, change.end, change.after))


# --- which function a change is in ---

SCOPES = ("namespace", "class", "struct", "union", "enum")


def name_in_head(head):
    """The name that the tokens before a body or an end of a declaration declare."""
    texts = [token.text for token in head]
    for end in ("(", "=", "{", ";"):
        if end in texts:
            head = head[:texts.index(end)]
            texts = texts[:texts.index(end)]
    if "operator" in texts:
        return "".join(texts[texts.index("operator"):])
    names = []
    for token in reversed(head):
        is_joint = token.text in ("::", "~")
        if token.kind != "word" and not is_joint:
            if names:
                break
            continue
        if names and names[-1] not in ("::", "~") and not is_joint:
            break
        names.append(token.text)
    return "".join(reversed(names))


def scope_name(head):
    words = [token.text for token in head if token.kind == "word"]
    words = [word for word in words if word not in ("final", "enum", "class", "struct", "union")]
    is_class = head and not any(token.text == "namespace" for token in head)
    return words[0] + "::" if is_class and words else ""


def declarations_of(tokens):
    """(begin, end, name) of the outermost functions and variables, of members too."""
    found = []
    scopes = []  # names of the open namespaces and classes
    start = i = 0
    while i < len(tokens):
        text = tokens[i].text if tokens[i].kind == "operator" else ""
        head = tokens[start:i + 1]
        if text == "{" and any(token.text in SCOPES for token in head) and \
                not any(token.text == "(" for token in head):
            scopes.append(scope_name(head[:-1]))
            start = i + 1
        elif text in ("(", "[", "{"):
            i = closing(tokens, i)
            following = tokens[i + 1].text if i + 1 < len(tokens) else ";"
            # The body of a function ends its definition; a brace initializer does not.
            if text == "{" and following not in (";", ",", "{", ")"):
                found.append((start, i, "".join(scopes) + name_in_head(head)))
                start = i + 1
        elif text == "}":
            if scopes:
                scopes.pop()
            start = i + 1
        elif text == ";":
            if start < i:
                found.append((start, i, "".join(scopes) + name_in_head(head)))
            start = i + 1
        elif text == ":" and i and tokens[i - 1].text in ("public", "private", "protected"):
            start = i + 1
        i += 1
    return [(tokens[first].begin, tokens[last].end, name) for first, last, name in found]


def function_at(declarations, place):
    for begin, end, name in declarations:
        if begin <= place < end:
            return name
    return ""
