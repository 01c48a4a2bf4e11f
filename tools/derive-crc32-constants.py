#!/usr/bin/env python3
"""Folding constants of the reflected CRC-32 (polynomial 0x04C11DB7, reflected
0xEDB88320) for carry-less multiplication, all in one convention: the 33-bit
remainder x^e mod P, bit-reflected, shifted left by one.

A 128-bit lane folded forward over a distance of D bits is multiplied, low half
by k(D + 32), high half by k(D - 32). The program's folding code uses:
  D = 128  (one xmm block)        D = 512  (four xmm accumulators)
  D = 2048 (eight ymm accumulators, two lanes each: stride 256 bytes)
"""
P = 0x104C11DB7


def xpow_mod(e):
    r = 1
    for _ in range(e):
        r <<= 1
        if r & (1 << 32):
            r ^= P
    return r


def reflect(v, bits):
    return int(format(v, f"0{bits}b")[::-1], 2)


def k(e):
    return reflect(xpow_mod(e), 32) << 1


for d in (128, 512, 2048):
    print(f"fold {d:5}: low 0x{k(d + 32):09x}  high 0x{k(d - 32):09x}")
