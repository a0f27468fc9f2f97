#!/usr/bin/env python3
"""Writes test vectors from implementations that share no code with ours.

Usage: independent_digests.py hashlib > ../hashlib-independent.txt
       independent_digests.py panama  > ../panama-independent.txt
"""
import hashlib
import sys
import zlib

# Around every block edge of the algorithms, around our read buffer, and several buffers.
SIZES = (0, 1, 31, 32, 33, 55, 56, 63, 64, 65, 111, 112, 127, 128, 129, 135, 136, 137,
         32767, 32768, 32769, 65536)

HASHLIB_NAMES = {
    "SHA1": "sha1", "SHA-224": "sha224", "SHA-256": "sha256", "SHA-384": "sha384", "SHA-512": "sha512",
    "MD5": "md5",
}
CHECKSUMS = {"Adler32": zlib.adler32, "CRC32": zlib.crc32}


def pattern(size):
    return bytes(i % 251 for i in range(size))


def panama_step(state, buffer, block):
    """One push of `block`, or one pull where it is None (Daemen and Clapp, FSE 1998). Words are 32 bits."""
    mask = 0xFFFFFFFF
    fed_to_buffer = block if block is not None else state[1:9]
    fed_to_state = block if block is not None else buffer[4]
    tap = buffer[16]
    last = buffer[31]
    shifted = [[a ^ b for a, b in zip(last, fed_to_buffer)]] + buffer[:31]
    shifted[25] = [shifted[25][i] ^ last[(i + 2) % 8] for i in range(8)]
    gamma = [state[i] ^ (state[(i + 1) % 17] | (~state[(i + 2) % 17] & mask)) for i in range(17)]
    pi = []
    for i in range(17):
        word, shift = gamma[7 * i % 17], i * (i + 1) // 2 % 32
        pi.append((word << shift | word >> (32 - shift)) & mask)
    theta = [pi[i] ^ pi[(i + 1) % 17] ^ pi[(i + 4) % 17] for i in range(17)]
    sigma = [1] + list(fed_to_state) + list(tap)
    return [a ^ b for a, b in zip(theta, sigma)], shifted


def panama(message):
    """Panama's digest with words read and written least significant byte first."""
    padded = message + b"\x01"
    padded += b"\0" * (-len(padded) % 32)
    state, buffer = [0] * 17, [[0] * 8 for _ in range(32)]
    for start in range(0, len(padded), 32):
        words = [int.from_bytes(padded[start + 4 * i:start + 4 * i + 4], "little") for i in range(8)]
        state, buffer = panama_step(state, buffer, words)
    for _ in range(32):
        state, buffer = panama_step(state, buffer, None)
    return b"".join(word.to_bytes(4, "little") for word in state[9:17])


def write(source, digests):
    print(f"# {source}; made by generate/independent_digests.py.")
    for name, digest in digests.items():
        print(f"\nalgorithm = {name}")
        for size in SIZES:
            print(f"pattern = {size}\nout = {digest(pattern(size)).hex().upper()}")


def hashlib_digests():
    digests = {name: lambda data, key=key: hashlib.new(key, data).digest() for name, key in HASHLIB_NAMES.items()}
    for name, checksum in CHECKSUMS.items():
        digests[name] = lambda data, checksum=checksum: checksum(data).to_bytes(4, "big")
    return digests


def main():
    if sys.argv[1:] == ["hashlib"]:
        write("Python's hashlib (OpenSSL) and zlib", hashlib_digests())
    elif sys.argv[1:] == ["panama"]:
        write("A plain rendering of the designers' paper in Python", {"Panama": panama})
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
