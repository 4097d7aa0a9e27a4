"""The form of the vector files: one case a line, fields separated by tabs.

In a field, a backslash and every byte outside printable ASCII stand as \\xHH, byte by byte of the UTF-8 form. A list is
written as the number of its entries, followed by a field for each.
"""


def field(value):
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, int):
        return str(value)
    return "".join(chr(b) if 0x20 <= b < 0x7F and b != 0x5C else f"\\x{b:02X}" for b in value.encode("utf-8"))


def row(*values):
    fields = []
    for value in values:
        if isinstance(value, (list, tuple)):
            fields.append(str(len(value)))
            fields.extend(field(entry) for entry in value)
        else:
            fields.append(field(value))
    return "\t".join(fields) + "\n"


def unique(values):
    return list(dict.fromkeys(values))
