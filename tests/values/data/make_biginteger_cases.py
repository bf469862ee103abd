#!/usr/bin/env python3
"""Writes biginteger_cases.txt: random operand pairs with their results, computed by Python's
own integers, for the big-integer tests to compare against.

One case per line, fields separated by single spaces:
    a b a+b a-b a*b a/b a%b cmp isqrt(a) int(a) longlong(a)
a/b truncates towards zero and a%b takes the sign of a (as in C), "throw" where b is 0.
cmp is -1, 0 or 1. isqrt(a) is "throw" for a <= 0 (0 fails inside Newton's iteration).
int(a) and longlong(a) are "throw" outside the range of the 32- and 64-bit types.

Run from anywhere: python3 make_biginteger_cases.py  (a fixed seed gives the same file).
"""
import math
import os
import random

rng = random.Random(20261124)

EDGES = [0, 1, -1, 9, 10, 99, 100, 2**31 - 1, -2**31, 2**31, -2**31 - 1, 2**63 - 1, -2**63, 2**63, -2**63 - 1,
         10**18, 10**19 - 1]


def number(max_digits):
    digits = rng.randint(1, max_digits)
    value = rng.randint(10 ** (digits - 1) if digits > 1 else 0, 10**digits - 1)
    # Runs of 9s and 0s make long carries and borrows.
    if rng.random() < 0.15:
        value = 10**digits - 1
    elif rng.random() < 0.15:
        value = 10 ** (digits - 1)
    return -value if rng.random() < 0.5 else value


def pairs():
    for a in EDGES:
        yield a, rng.choice(EDGES)
    for _ in range(60):
        yield number(4), number(4)
    for _ in range(60):
        yield number(20), number(20)
    for _ in range(50):
        yield number(300), number(300)
    for _ in range(30):
        yield number(300), number(40)
    for _ in range(15):  # equal, near-equal and exact multiples
        b = number(60)
        yield rng.choice([b, b + 1, -b, b * number(30)]), b
    for _ in range(10):
        yield number(30), 0


def trunc_div(a, b):
    q = abs(a) // abs(b)
    return q if (a < 0) == (b < 0) else -q


def in_range(a, bits):
    return str(a) if -2 ** (bits - 1) <= a < 2 ** (bits - 1) else "throw"


def line(a, b):
    if b == 0:
        quotient = remainder = "throw"
    else:
        q = trunc_div(a, b)
        quotient, remainder = str(q), str(a - b * q)
    cmp = (a > b) - (a < b)
    root = str(math.isqrt(a)) if a > 0 else "throw"
    fields = [a, b, a + b, a - b, a * b, quotient, remainder, cmp, root, in_range(a, 32), in_range(a, 64)]
    return " ".join(str(f) for f in fields)


here = os.path.dirname(os.path.abspath(__file__))
with open(os.path.join(here, "biginteger_cases.txt"), "w") as out:
    for a, b in pairs():
        out.write(line(a, b) + "\n")
