#!/usr/bin/env python3
"""Writes decimal_cases.txt: random decimal operand pairs with the texts of their results,
computed with Python's fractions and integers, for the decimal tests to compare against.

One case per line, fields separated by single spaces:
    bound a b text(a) text(b) a+b a-b a*b a/b cmp n text(a,n) integer(a)
bound is the bound on places the case runs with. text(a) is the text of a as read (rounded
to the bound), a/b is "throw" where b is 0, cmp is -1, 0 or 1, text(a,n) the text of a with
at most n places, and integer(a) a rounded to an integer.

The rules the library follows, modelled here without its digit arithmetic:
- A value has a number of places D (at least 1). Reading a text keeps its places without
  trailing zeros; more places than the bound are then rounded to the bound, to nearest with
  an exact half towards zero, and zeros that rounding leaves at the end are dropped too.
- a+b and a-b are exact; a*b is exact and then rounded to the bound; a/b is truncated at
  bound+2 places and then rounded to the bound. Results drop trailing zeros before rounding.
- A text with a zero fraction is the whole part alone; otherwise the fraction is printed with
  all D places.
- text(a, n) adds half a unit of place n+1 away from zero (nothing when n+1 exceeds the
  bound), drops trailing zeros of the sum, and cuts its fraction to n places, always with a
  point.
- integer(a) rounds to nearest, an exact half towards zero.

Run from anywhere: python3 make_decimal_cases.py  (a fixed seed gives the same file).
"""
import os
import random
from fractions import Fraction

rng = random.Random(20261124)


def strip(value, places):
    """The places left when trailing zeros of value (which fits in places) are dropped."""
    while places > 1 and (value * 10 ** (places - 1)).denominator == 1:
        places -= 1
    return places


def round_half_down(value, places):
    scaled = value * 10**places
    whole = int(scaled)  # towards zero
    rest = abs(scaled - whole)
    if rest > Fraction(1, 2):
        whole += 1 if value > 0 else -1
    return Fraction(whole, 10**places)


def bounded(value, places, bound):
    places = strip(value, places)
    if places > bound:
        rounded = round_half_down(value, bound)
        return rounded, strip(rounded, bound)
    return value, places


def text(value, places):
    negative = value < 0
    magnitude = abs(value)
    whole = int(magnitude)
    fraction = magnitude - whole
    if fraction == 0:
        return ("-" if negative and whole else "") + str(whole)
    digits = str(int(fraction * 10**places)).rjust(places, "0")
    return ("-" if negative else "") + str(whole) + "." + digits


def fixed_text(value, places, n, bound):
    half = Fraction(5, 10 ** (n + 1)) if n + 1 <= bound else Fraction(0)
    half_places = n + 1 if n + 1 <= bound else 0
    total = value - half if value < 0 else value + half
    total_places = strip(total, max(places, half_places))
    magnitude = abs(total)
    whole = int(magnitude)
    digits = str(int((magnitude - whole) * 10**total_places)).rjust(total_places, "0")[:n]
    return ("-" if value < 0 else "") + str(whole) + "." + digits


def operand():
    if rng.random() < 0.06:
        return "0"
    whole_digits = rng.choice([0, 1, 1, 2, 5, 12, 20, 40, 120, 200])
    fraction_digits = rng.choice([0, 1, 2, 3, 8, 16, 29, 30, 31, 33, 40])
    whole = "".join(rng.choice("0123456789") for _ in range(whole_digits)).lstrip("0") or "0"
    fraction = "".join(rng.choice("0123456789") for _ in range(fraction_digits))
    # Runs of 9s and a final 5 make carries and exact halves.
    if fraction and rng.random() < 0.2:
        fraction = fraction[:-1] + "5"
    if fraction and rng.random() < 0.15:
        fraction = "9" * len(fraction)
    # A negative zero (-0, -0.000) has a sign that only some operations see; the tests of the
    # library cover it on their own.
    sign = "-" if rng.random() < 0.5 and Fraction(whole + "." + (fraction or "0")) != 0 else ""
    return sign + whole + ("." + fraction if fraction else "")


def read(literal, bound):
    places = len(literal.split(".")[1]) if "." in literal else 1
    return bounded(Fraction(literal), max(places, 1), bound)


def main():
    lines = []
    for index in range(400):
        bound = 30 if index < 300 else rng.choice([0, 2, 6])
        a_text, b_text = operand(), operand()
        (a, da), (b, db) = read(a_text, bound), read(b_text, bound)
        d = max(da, db)
        total = bounded(a + b, d, 10**9)
        difference = bounded(a - b, d, 10**9)
        product = bounded(a * b, 2 * d, bound)
        if b == 0:
            quotient_text = "throw"
        else:
            kept = bound + 2
            truncated = Fraction(int((a / b) * 10**kept), 10**kept)
            quotient_text = text(*bounded(truncated, kept, bound))
        cmp = (a > b) - (a < b)
        n = rng.randint(0, 8)
        integer = round_half_down(a, 0)
        lines.append(" ".join([str(bound), a_text, b_text, text(a, da), text(b, db), text(*total),
                               text(*difference), text(*product), quotient_text, str(cmp), str(n),
                               fixed_text(a, da, n, bound), str(int(integer))]))
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), "decimal_cases.txt")
    with open(path, "w") as out:
        out.write("\n".join(lines) + "\n")


main()
