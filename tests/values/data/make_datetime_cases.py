#!/usr/bin/env python3
"""Writes datetime_cases.txt: dateTime arithmetic and comparisons computed with Python's own
calendar (datetime.date ordinals), for the date and duration tests to compare against.

One case per line, fields separated by single spaces:
    add <dateTime> <duration> <dateTime + duration>
    cmp <dateTime> <dateTime> <result>
    dur <duration> <duration> <result>
where result is one of = < > ? (equal, less, greater, indeterminate).

Addition adds the months first, cuts the day to the last day of the month reached, and then
adds days, hours, minutes, seconds and the fraction as one exact count of nanoseconds.
Comparison: two values both with or both without a zone compare as instants (a value without
a zone taken as it reads); a value without a zone against one with a zone is less or greater
only when it is so at every offset from -14:00 to +14:00, otherwise indeterminate.
Durations compare by adding both to the dates 1696-09-01, 1697-02-01, 1903-03-01 and
1903-07-01 and comparing the days reached (a date has no time of day, so a part of a day that
doesn't reach the next day counts for nothing): the result is that of the four when they
agree, otherwise indeterminate.
An offset of less than an hour behind UTC keeps no sign: -00:30 is the offset +00:30.
Years stay within 40 to 9900, which Python's calendar covers.

Run from anywhere: python3 make_datetime_cases.py  (a fixed seed gives the same file).
"""
import datetime
import os
import random

rng = random.Random(20261124)
NS_PER_DAY = 86400 * 10**9
LAST_DAY = [31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31]


def last_day(year, month):
    if month == 2 and (year % 4 == 0 and year % 100 != 0 or year % 400 == 0):
        return 29
    return LAST_DAY[month - 1]


class Value:
    """A dateTime: local calendar fields, nanoseconds of the day, and an offset in minutes or None."""

    def __init__(self, year, month, day, ns, zone):
        self.year, self.month, self.day, self.ns, self.zone = year, month, day, ns, zone

    def local_ns(self):
        return datetime.date(self.year, self.month, self.day).toordinal() * NS_PER_DAY + self.ns

    def utc_ns(self):
        return self.local_ns() - (self.zone or 0) * 60 * 10**9

    @staticmethod
    def from_local_ns(total, zone):
        day = datetime.date.fromordinal(total // NS_PER_DAY)
        return Value(day.year, day.month, day.day, total % NS_PER_DAY, zone)

    def text(self):
        seconds, frac = divmod(self.ns, 10**9)
        out = "%04d-%02d-%02dT%02d:%02d:%02d" % (self.year, self.month, self.day, seconds // 3600,
                                                 seconds // 60 % 60, seconds % 60)
        if frac:
            out += "." + ("%09d" % frac).rstrip("0")
        if self.zone is not None:
            if self.zone == "Z":
                out += "Z"
            else:
                sign = "-" if self.zone < 0 else "+"
                out += "%s%02d:%02d" % (sign, abs(self.zone) // 60, abs(self.zone) % 60)
        return out


class Span:
    def __init__(self, negative, years, months, days, hours, minutes, seconds, frac_ns):
        self.negative, self.years, self.months, self.days = negative, years, months, days
        self.hours, self.minutes, self.seconds, self.frac_ns = hours, minutes, seconds, frac_ns

    def text(self):
        out = "-P" if self.negative else "P"
        for count, letter in ((self.years, "Y"), (self.months, "M"), (self.days, "D")):
            if count:
                out += "%d%s" % (count, letter)
        if self.hours or self.minutes or self.seconds or self.frac_ns:
            out += "T"
            if self.hours:
                out += "%dH" % self.hours
            if self.minutes:
                out += "%dM" % self.minutes
            if self.seconds or self.frac_ns:
                out += "%d" % self.seconds
                if self.frac_ns:
                    out += "." + ("%09d" % self.frac_ns).rstrip("0")
                out += "S"
        if out in ("P", "-P"):
            out += "0D"
        return out

    def add_to(self, value):
        s = -1 if self.negative else 1
        t = value.month + s * self.months
        month = (t - 1) % 12 + 1
        year = value.year + (t - 1) // 12 + s * self.years
        day = min(value.day, last_day(year, month))
        rest = ((self.days * 24 + self.hours) * 60 + self.minutes) * 60 + self.seconds
        rest = rest * 10**9 + self.frac_ns
        moved = Value(year, month, day, value.ns, value.zone)
        return Value.from_local_ns(moved.local_ns() + s * rest, value.zone)


def zone_minutes(zone):
    return 0 if zone == "Z" else zone


def compare(a, b):
    def utc(v):
        return v.local_ns() - zone_minutes(v.zone) * 60 * 10**9

    if (a.zone is None) == (b.zone is None):
        x, y = (a.local_ns(), b.local_ns()) if a.zone is None else (utc(a), utc(b))
        return "=" if x == y else ("<" if x < y else ">")
    limit = 14 * 3600 * 10**9
    if a.zone is None:
        return "<" if a.local_ns() + limit < utc(b) else (">" if a.local_ns() - limit > utc(b) else "?")
    return "<" if utc(a) + limit < b.local_ns() else (">" if utc(a) - limit > b.local_ns() else "?")


REFERENCES = [(1696, 9, 1), (1697, 2, 1), (1903, 3, 1), (1903, 7, 1)]


def compare_spans(p, q):
    results = set()
    for year, month, day in REFERENCES:
        start = Value(year, month, day, 0, "Z")
        left, right = p.add_to(start), q.add_to(start)
        left, right = (left.year, left.month, left.day), (right.year, right.month, right.day)
        results.add("=" if left == right else ("<" if left < right else ">"))
    return results.pop() if len(results) == 1 and "?" not in results else "?"


def random_zone():
    pick = rng.random()
    if pick < 0.25:
        return None
    if pick < 0.4:
        return "Z"
    zone = rng.choice([-1, 1]) * (rng.randint(0, 14) * 60 + rng.choice([0, 0, 30, 45, rng.randint(0, 59)]))
    return -zone if -60 < zone < 0 else zone


def random_value(zone=None):
    year = rng.randint(200, 9700)
    month = rng.randint(1, 12)
    day = rng.randint(1, last_day(year, month))
    if rng.random() < 0.3:
        day = last_day(year, month)
    ns = rng.randint(0, 86399) * 10**9
    if rng.random() < 0.4:
        ns += rng.choice([rng.randint(0, 999) * 10**6, rng.randint(0, 10**9 - 1), 1])
    return Value(year, month, day, ns, zone)


def random_span():
    def count(limit):
        return rng.randint(1, limit) if rng.random() < 0.5 else 0

    frac = rng.choice([0, 0, rng.randint(0, 999) * 10**6, rng.randint(0, 10**9 - 1)])
    return Span(rng.random() < 0.5, count(150), count(40), count(2000), count(100), count(5000), count(200000), frac)


def day_span(days, negative=False):
    return Span(negative, 0, 0, days, 0, 0, 0, 0)


def main():
    lines = []
    for _ in range(400):
        value = random_value(random_zone() if rng.random() < 0.3 else None)
        span = random_span()
        lines.append("add %s %s %s" % (value.text(), span.text(), span.add_to(value).text()))
    # Month ends, leap days and the turn of the year by small steps.
    for year in (1900, 2000, 2001, 2004, 2100, 2400):
        for month, day in ((1, 31), (2, 28), (2, 29), (3, 31), (12, 31)):
            if day <= last_day(year, month):
                value = Value(year, month, day, 0, None)
                for span in (Span(False, 0, 1, 0, 0, 0, 0, 0), Span(True, 0, 1, 0, 0, 0, 0, 0), day_span(1),
                             day_span(1, True), Span(False, 1, 0, 0, 0, 0, 0, 0), Span(True, 0, 0, 0, 0, 0, 0, 1)):
                    lines.append("add %s %s %s" % (value.text(), span.text(), span.add_to(value).text()))
    hour = 3600 * 10**9
    for _ in range(400):
        a = random_value(random_zone())
        delta = rng.choice([0, 1, -1, 14 * hour, -14 * hour, 14 * hour + 1, -14 * hour - 1, 14 * hour - 1,
                            rng.randint(-30 * hour, 30 * hour), rng.randint(-10**6, 10**6) * 10**9])
        zone = random_zone()
        # b is the same instant as a, moved by delta and written in its own zone (or as it reads).
        base = a.utc_ns() if a.zone not in (None, "Z") else a.local_ns()
        b = Value.from_local_ns(base + delta + zone_minutes(zone or 0) * 60 * 10**9, zone)
        lines.append("cmp %s %s %s" % (a.text(), b.text(), compare(a, b)))
    for _ in range(250):
        p = random_span()
        p.negative = False
        pick = rng.random()
        if pick < 0.3:  # the same length said another way: months against days, days against hours
            q = Span(False, 0, 0, p.days + rng.choice([0, 1, -1]) if p.days else 0, p.hours + 24 * rng.randint(0, 2),
                     p.minutes, p.seconds, p.frac_ns)
            q.days = max(q.days - (q.hours - p.hours) // 24, 0)
            q.days += rng.choice([28, 29, 30, 31, 0]) * p.months + rng.choice([365, 366]) * p.years
        elif pick < 0.5:
            q = Span(False, 0, 0, rng.choice([28, 29, 30, 31, 32]) * rng.randint(1, 3), 0, 0, 0, 0)
            p = Span(False, 0, q.days // 29, 0, 0, 0, 0, 0)
        else:
            q = random_span()
            q.negative = p.negative
        lines.append("dur %s %s %s" % (p.text(), q.text(), compare_spans(p, q)))
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), "datetime_cases.txt")
    with open(path, "w") as out:
        out.write("\n".join(lines) + "\n")


main()
