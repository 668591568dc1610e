"""The small changes that can be made to a C++ file: slips of the kind that people make.

A change is a piece of the text and what stands there instead. Nothing here knows the types; a change
that does not compile is left out later. Not changed: comments, preprocessor lines, static_assert, sizes
of arrays that are declared, and what is the same by construction (std::min of its arguments swapped).
Orders of memory are not either: on this processor the weaker ones compile to the same code, and
ThreadSanitizer's tests look after them."""

import re
from collections import namedtuple

Change = namedtuple("Change", "file operator start end text")
Token = namedtuple("Token", "kind text start end spaced")  # spaced: blanks on both sides

_TOKENS = re.compile(
    r'''(?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*|\s+)
      |(?P<string>(?:u8|R)?"(?:\\.|[^"\\\n])*")
      |(?P<char>'(?:\\.|[^'\\\n])+')
      |(?P<number>0[xX][0-9a-fA-F']+[uUlL]*|\d[\d']*(?:\.\d+)?(?:[eE][+-]?\d+)?[uUlL]*)
      |(?P<name>[A-Za-z_]\w*)
      |(?P<sign><<=|>>=|->|::|\+\+|--|&&|\|\||[-<>=!+*/%&|^]=|<<|>>|.)''',
    re.M | re.S | re.X)

_OPPOSITES = {
    "comparison": {"==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"],
                   ">": [">=", "<="], ">=": [">", "<"]},
    "arithmetic": {"+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["/"], "+=": ["-="],
                   "-=": ["+="], "*=": ["/="], "<<": [">>"], ">>": ["<<"], "&": ["|"],
                   "|": ["&"], "|=": ["&="]},
    "logical": {"&&": ["||"], "||": ["&&"]},
}
_ASSIGNMENTS = {"=", "+=", "-=", "*=", "/=", "|=", "&=", "<<=", ">>="}
_OPENING = {"(": ")", "[": "]", "{": "}"}
_SAME_EITHER_WAY = {"min", "max", "strcmp", "memcmp", "static_assert", "if", "while", "for"}
_NO_CALLS = {"return", "case", "throw", "else", "delete", "sizeof", "static_cast", "break", "if",
             "while", "for", "switch", "using", "do", "catch", "static_assert"}


def tokens_of(source):
    found = []
    for match in _TOKENS.finditer(source):
        if match.lastgroup == "skip":
            continue
        around = source[match.start() - 1:match.start()] + source[match.end():match.end() + 1]
        found.append(Token(match.lastgroup, match.group(), match.start(), match.end(),
                           len(around) == 2 and around.isspace()))
    return _without_static_asserts(found)


def _without_static_asserts(tokens):
    kept, at = [], 0
    while at < len(tokens):
        if tokens[at].text == "static_assert":
            while tokens[at].text != ";":
                at += 1
        kept.append(tokens[at])
        at += 1
    return kept


def _closing(tokens, at):
    """The index of the bracket that closes the one at this index; None when there is none."""
    depth = 0
    for index in range(at, len(tokens)):
        if tokens[index].text in _OPENING:
            depth += 1
        elif tokens[index].text in _OPENING.values():
            depth -= 1
            if depth == 0:
                return index
    return None


def _signs(tokens, at):
    token = tokens[at]
    if token.kind == "sign" and token.spaced:
        for operator, opposites in _OPPOSITES.items():
            for opposite in opposites.get(token.text, []):
                yield operator, token.start, token.end, opposite
    if token.text in ("++", "--"):
        yield "step", token.start, token.end, "--" if token.text == "++" else "++"
    if token.text == "!" and tokens[at + 1].text != "=":
        yield "condition", token.start, token.end, ""


def _constants(tokens, at):
    token = tokens[at]
    if token.text in ("true", "false"):
        yield "constant", token.start, token.end, "false" if token.text == "true" else "true"
    if token.kind != "number" or _is_size_of_array(tokens, at):
        return
    digits = re.match(r"[^uUlL]*", token.text).group()
    suffix = token.text[len(digits):]
    if "." in digits:
        last = str((int(digits[-1]) + 1) % 10)
        yield "constant", token.start, token.end, digits[:-1] + last
        return
    try:
        value = int(digits.replace("'", ""), 0)
    except ValueError:
        return
    for changed in (value + 1, value - 1):
        if changed >= 0:
            yield "constant", token.start, token.end, str(changed) + suffix


def _is_size_of_array(tokens, at):
    return (tokens[at - 1].text == "[" and tokens[at + 1].text == "]"
            and tokens[at - 3].kind == "name" and tokens[at - 2].kind == "name")


def _conditions(tokens, at):
    if tokens[at].text not in ("if", "while") or tokens[at + 1].text != "(":
        return
    end = _closing(tokens, at + 1)
    if end is not None:
        yield "condition", tokens[at + 1].end, tokens[at + 1].end, "!("
        # Both brackets at once: see apply().


def _statements(tokens, at):
    token = tokens[at]
    if token.text in ("break", "continue") and tokens[at + 1].text == ";":
        yield "jump", token.start, token.end, ""
    if token.text == "return" and (tokens[at + 1].text == ";" or tokens[at - 1].text == ")"):
        end = at
        while tokens[end].text != ";":
            end = _closing(tokens, end) + 1 if tokens[end].text in _OPENING else end + 1
        yield "jump", token.start, tokens[end].start, ""
    if tokens[at - 1].text in (";", "{", "}", ")", "else"):
        end = _end_of_statement(tokens, at)
        if end is not None:
            yield "statement", token.start, tokens[end].start, ""


def _end_of_statement(tokens, at):
    """Of a call, an assignment or a step; None for anything else, declarations above all."""
    first, called = at, False
    if tokens[at].text in ("*", "++", "--"):
        called = tokens[at].text != "*"
        at += 1
    if tokens[at].kind != "name" or tokens[at].text in _NO_CALLS:
        return None
    at += 1
    while tokens[at].text in ("::", ".", "->", "(", "["):
        if tokens[at].text in _OPENING:
            if tokens[at].text == "(" and at == first + 1 and tokens[first].text[0].isupper():
                return None  # the declaration of a constructor
            called = called or tokens[at].text == "("
            at = _closing(tokens, at) + 1
        else:
            at += 2
    if tokens[at].text in ("++", "--"):
        called, at = True, at + 1
    if tokens[at].text in _ASSIGNMENTS and not called:
        while tokens[at].text != ";":
            at = _closing(tokens, at) + 1 if tokens[at].text in _OPENING else at + 1
        return at
    return at if called and tokens[at].text == ";" else None


def _arguments(tokens, at):
    if tokens[at].text != "(" or tokens[at - 1].kind != "name" or tokens[at - 1].text in _SAME_EITHER_WAY:
        return
    end = _closing(tokens, at)
    if end is None:
        return
    parts, begin, index = [], at + 1, at + 1
    while index <= end:
        if tokens[index].text in (",", ")") :
            parts.append((begin, index - 1))
            begin = index + 1
        index = _closing(tokens, index) + 1 if tokens[index].text in _OPENING else index + 1
    for first, second in zip(parts, parts[1:]):
        if first[0] <= first[1] and second[0] <= second[1]:
            yield first, second


def _swaps(source, tokens, at):
    for first, second in _arguments(tokens, at):
        for begin, end in (first, second):
            inside = tokens[begin:end + 1]
            if any(a.kind == b.kind == "name" for a, b in zip(inside, inside[1:])):
                break  # a declaration
            if inside[-1].text in ("*", "&", "&&"):
                break
        else:
            one = source[tokens[first[0]].start:tokens[first[1]].end]
            between = source[tokens[first[1]].end:tokens[second[0]].start]
            other = source[tokens[second[0]].start:tokens[second[1]].end]
            if one != other:
                yield ("arguments", tokens[first[0]].start, tokens[second[1]].end,
                       other + between + one)


def _texts(tokens, at):
    token = tokens[at]
    if token.kind != "string" or tokens[at - 1].text == "extern" or token.text.startswith("R"):
        return
    # Letters that no escape and no conversion of a format needs.
    taken = [match.span() for match in re.finditer(r"\\.|%[-#0-9.l]*[a-zA-Z]", token.text)]
    letters = [index for index, letter in enumerate(token.text[:-1])
               if letter.isalpha() and index > 0 and not any(a <= index < b for a, b in taken)]
    if not letters:
        yield "text", token.end - 1, token.end - 1, "Q"
        return
    middle = token.start + letters[len(letters) // 2]
    yield "text", middle, middle + 1, "Z" if token.text[middle - token.start] == "Q" else "Q"


def changes_of(file, source):
    tokens = tokens_of(source)
    found = []
    for at in range(3, len(tokens) - 3):
        for make in (_signs, _constants, _conditions, _statements, _texts):
            found += [Change(file, *parts) for parts in make(tokens, at)]
        found += [Change(file, *parts) for parts in _swaps(source, tokens, at)]
    return found


def apply(change, source):
    if change.text == "!(":
        tokens = tokens_of(source)
        at = next(index for index, token in enumerate(tokens) if token.end == change.start)
        end = tokens[_closing(tokens, at)].start
        return source[:change.start] + "!(" + source[change.start:end] + ")" + source[end:]
    return source[:change.start] + change.text + source[change.end:]
