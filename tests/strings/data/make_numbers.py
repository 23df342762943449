#!/usr/bin/env python3
"""Writes numbers.txt: numbers in hexadecimal and decimal digits, by arithmetic that is not the library's.

Each line has the number in hexadecimal digits, two a byte; in decimal digits; and the bytes, in hexadecimal digits again, of the
decimal digits with the first ten of them no more than 2147483647, or "=" when that is the number itself.
"""
import random
import sys

random.seed(20260101)
getattr(sys, "set_int_max_str_digits", lambda n: None)(0)

def hexadecimal(n):
    digits = "%X" % n
    return digits if len(digits) % 2 == 0 else "0" + digits

def line(n):
    decimal = str(n)
    head = min(int(decimal[:10]), 2147483647)
    cut = int(str(head) + decimal[10:])
    return "%s %s %s" % (hexadecimal(n), decimal, "=" if cut == n else hexadecimal(cut))

numbers = set(range(0, 12)) | {99, 100, 101}
for e in list(range(4, 40, 3)) + [8, 31, 32, 33, 63, 64, 65, 95, 96, 127, 128, 129, 255, 256, 512, 1024, 2048, 4096]:
    numbers |= {2**e - 1, 2**e, 2**e + 1}
for e in list(range(1, 22)) + [27, 28, 36, 38, 39, 57, 63, 64, 65, 127, 128, 129, 192, 256, 512, 640, 1024, 1999]:
    numbers |= {10**e - 1, 10**e, 10**e + 1}
for length in list(range(12, 100, 7)) + [120, 150, 200, 300, 500, 800, 1500, 3000, 5000]:
    zeros = length // 3
    numbers.add(random.randrange(10**(length - 1), 10**length))
    numbers.add(random.randrange(1, 10**zeros) * 10**(length - zeros) + random.randrange(10**zeros))  # zeros within
    numbers.add(random.randrange(10**9) << length)  # zero bytes at the end

with open(__file__.replace("make_numbers.py", "numbers.txt"), "w") as out:
    for n in sorted(numbers):
        out.write(line(n) + "\n")
