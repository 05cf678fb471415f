"""Prints the events of a calendar file, one a line, as python3-icalendar reads them."""

import sys

import icalendar


def shown(text):
    return str(text).replace("\\", "\\\\").replace("\n", "\\n").replace("\t", "\\t")


def alarm(event):
    return " ".join(f"{a['ACTION']} {a['TRIGGER'].dt} {shown(a['DESCRIPTION'])}"
                    for a in event.walk("VALARM"))


sys.stdout.reconfigure(encoding="utf-8", newline="\n")
with open(sys.argv[1], "rb") as file:
    content = file.read()
assert content.endswith(b"\r\n") and b"\n" not in content.replace(b"\r\n", b"")
for line in content.split(b"\r\n"):
    assert len(line) <= 75, line
    line.decode("utf-8")
calendar = icalendar.Calendar.from_ical(content)
assert not calendar.errors, calendar.errors
print("\t".join(f"{name}={calendar[name]}" for name in sorted(calendar)))
for event in calendar.walk("VEVENT"):
    assert not event.errors, event.errors
    fields = [event["DTSTART"].dt, event["DTEND"].dt, shown(event["SUMMARY"]),
              shown(event["DESCRIPTION"]), event["UID"], event["DTSTAMP"].dt, event["SEQUENCE"]]
    for name in ("LOCATION", "X-VELLORA-LEVEL", "COLOR", "TRANSP"):
        fields.append(event.get(name, "-"))
    fields.append(event["CATEGORIES"].to_ical().decode() if "CATEGORIES" in event else "-")
    print("\t".join(map(str, fields)) + "\t" + alarm(event))
