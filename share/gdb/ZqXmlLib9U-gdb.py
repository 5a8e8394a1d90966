"""Shows the values of ZqXmlLib9 in gdb as the texts that they stand for.

gdb loads this file with the library where it is installed; by hand: `source ZqXmlLib9U-gdb.py`.
The printers read memory only, so they work on core files too. They need the debug information of
the library.
"""

import gdb
import gdb.printing

MAX_SHOWN = 200  # characters, digits and octets; what is longer ends in "..."


def cut(text, length=None):
    length = len(text) if length is None else length
    return text if length <= MAX_SHOWN else text[:MAX_SHOWN] + "..."


def memory(address, length):
    return bytes(gdb.selected_inferior().read_memory(int(address), length)) if length else b""


def text_of(value):
    """The text of a std::u16string."""
    length = int(value["_M_string_length"])
    octets = memory(value["_M_dataplus"]["_M_p"], 2 * min(length, MAX_SHOWN))
    return cut(octets.decode("utf-16-le", "replace"), length)


def quoted(value):
    return '"%s"' % text_of(value)


def vector_of(value):
    """The first item and the count of a std::vector."""
    begin, end = value["_M_impl"]["_M_start"], value["_M_impl"]["_M_finish"]
    return begin, int(end - begin)


def pointer_in(owner, target):
    """The pointer that a std::unique_ptr holds."""
    return owner.address.cast(target.pointer().pointer()).dereference()


def digits_of(number):
    """The sign and the decimal digits of a CBigInteger; they are stored last one first."""
    begin, count = vector_of(number["m_digits"])
    octets = memory(begin, 2 * count)
    digits = "".join(str(octets[i]) for i in range(2 * count - 2, -1, -2)) or "0"
    return "-" if int(number["m_sign"]) < 0 else "", digits


def fraction_of(value, names):
    digits = "".join("%03d" % int(value[name]) for name in names).rstrip("0")
    return "." + digits if digits else ""


class Printer:
    def __init__(self, value):
        self.value = value

    def number(self, name):
        return int(self.value[name])


class BigInteger(Printer):
    def to_string(self):
        sign, digits = digits_of(self.value)
        return sign + cut(digits)


class Decimal(Printer):
    def to_string(self):
        sign, digits = digits_of(self.value["m_unscaled"])
        places = self.number("m_places")
        digits = digits.rjust(places + 1, "0")
        return sign + cut(digits[:-places] + "." + digits[-places:] if places else digits)


class DateTime(Printer):
    # By the numbers of DTType; 1 and 5 have a time too.
    DATES = {1: "%Y-%m-%d", 2: "%Y-%m-%d", 3: "%Y-%m", 4: "%Y",
             5: "", 6: "---%d", 7: "--%m", 8: "--%m-%d"}

    def to_string(self):
        kind = self.number("m_type")
        if kind not in self.DATES:
            return "not set"
        year = self.number("m_year")
        text = self.DATES[kind].replace("%Y", "-" * (year < 0) + "%04d" % abs(year))
        text = text.replace("%m", "%02d" % self.number("m_month"))
        text = text.replace("%d", "%02d" % self.number("m_day"))
        if kind in (1, 5):
            text += "T" * (kind == 1) + ":".join(
                "%02d" % self.number(name) for name in ("m_hour", "m_minute", "m_second"))
            text += fraction_of(self.value, ("m_milli", "m_micro", "m_nano"))
        if self.value["m_hasZone"]:
            hour = self.number("m_zoneHour")
            return text + "%s%02d:%02d" % (
                "-" if hour < 0 else "+", abs(hour), self.number("m_zoneMinute"))
        return text + "Z" * bool(self.value["m_isUtc"])


class DateTimeSpan(Printer):
    """The fields as they are counted: 5000 milliseconds are not made seconds."""

    FIELDS = (("m_years", "Y"), ("m_months", "M"), ("m_days", "D"),
              ("m_hours", "H"), ("m_minutes", "M"), ("m_seconds", "S"),
              ("m_milliSeconds", "ms"), ("m_microSeconds", "us"), ("m_nanoSeconds", "ns"))

    def to_string(self):
        parts = ["%d%s" % (self.number(name), unit) if self.number(name) else ""
                 for name, unit in self.FIELDS]
        date, time = "".join(parts[:3]), "".join(parts[3:])
        return "-" * bool(self.value["m_negative"]) + "P" + date + ("T" + time if time else "")


class BinaryData(Printer):
    def to_string(self):
        buffer = self.value["m_buffer"]
        if not buffer:
            return "no buffer"
        length = int(buffer["m_length"])
        data = pointer_in(buffer["m_data"], gdb.lookup_type("unsigned char"))
        return "%d octets %s" % (length, cut(memory(data, min(length, MAX_SHOWN)).hex(), length))


class SmartPtr(Printer):
    """The address under the class that the object really has."""

    def to_string(self):
        target = self.value["m_object"]
        if not target:
            return "null"
        return "(%s) %#x" % (target.dynamic_type, int(target))


class Variant(Printer):
    def to_string(self):
        kind = str(self.value["m_type"]).rpartition("::")[2]
        if self.number("m_type") == 0:
            return kind
        payload = self.value["m_payload"]
        held = payload.type.strip_typedefs().template_argument(int(payload["_M_index"]))
        held_value = payload["_M_u"].address.cast(held.pointer()).dereference()
        if str(held).endswith("SLentText"):
            held_value = held_value["text"].dereference()
        is_text = "basic_string" in str(held_value.type.strip_typedefs())
        return "%s %s" % (kind, quoted(held_value) if is_text else held_value.format_string())


def name_of(node):
    name = node["m_name"].dereference()
    uri = text_of(name["uri"].dereference())
    return ("{%s}" % uri if uri else "") + text_of(name["localName"])


class XmlAttribute(Printer):
    def to_string(self):
        return "%s=%s" % (name_of(self.value), quoted(self.value["m_value"]))


class XmlElement(Printer):
    """Name, attributes and text, and the children within the limits of gdb's settings."""

    def to_string(self):
        owner = self.value["m_attributes"]
        held = pointer_in(owner, owner.type.strip_typedefs().template_argument(0))
        begin, count = vector_of(held.dereference()) if held else (None, 0)
        attributes = [(begin + i).dereference().dereference() for i in range(min(count, MAX_SHOWN))]
        words = [name_of(self.value)] + [XmlAttribute(a).to_string() for a in attributes]
        return "<%s> %s" % (" ".join(words), quoted(self.value["m_text"]))

    def children(self):
        child = self.value["m_firstChild"]
        index = 0
        while child:
            yield "[%d]" % index, child.dereference()
            child = child["m_nextSibling"]
            index += 1


def register():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("ZqXmlLib9")
    for name, printer in (
            ("CBigInteger", BigInteger), ("CBinaryData", BinaryData), ("CDateTime", DateTime),
            ("CDateTimeSpan", DateTimeSpan), ("CDecimal", Decimal), ("CSmartPtr<.*>", SmartPtr),
            ("CXmlAttribute", XmlAttribute), ("CXmlElement", XmlElement), ("ZqVariant", Variant)):
        printers.add_printer(name, "^ZqXmlLib9::%s$" % name, printer)
    gdb.printing.register_pretty_printer(gdb.current_objfile(), printers, replace=True)


register()
