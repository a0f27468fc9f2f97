#!/usr/bin/env python3
"""Writes enciphered containers made without any code of ours.

Usage: containers.py > ../vectors/containers.txt

Blowfish is OpenSSL's, called in its library since the openssl program takes keys of 128 bits only; the digests
are those of the botan program (Debian packages libssl3 and botan).
"""
import ctypes
import subprocess

CRYPTO = ctypes.CDLL("libcrypto.so.3")
for name in ("EVP_CIPHER_CTX_new", "EVP_CIPHER_fetch", "OSSL_PROVIDER_load"):
    getattr(CRYPTO, name).restype = ctypes.c_void_p
PASSWORD, MARKER, ALGORITHM = b"qkz", b"Kestrum-box", 804


def keccak(bits, message):
    command = ["botan", "hash", f"--algo=Keccak-1600({bits})", "-"]
    answer = subprocess.run(command, input=message, capture_output=True, check=True).stdout
    return bytes.fromhex(answer.split()[0].decode())


def blowfish_cbc(key, iv, plain):
    assert CRYPTO.OSSL_PROVIDER_load(None, b"legacy")
    cipher = ctypes.c_void_p(CRYPTO.EVP_CIPHER_fetch(None, b"BF-CBC", None))
    context = ctypes.c_void_p(CRYPTO.EVP_CIPHER_CTX_new())
    out, length = ctypes.create_string_buffer(len(plain) + 8), ctypes.c_int()
    assert CRYPTO.EVP_EncryptInit_ex(context, cipher, None, None, None)
    assert CRYPTO.EVP_CIPHER_CTX_set_key_length(context, len(key))
    assert CRYPTO.EVP_CIPHER_CTX_set_padding(context, 0)
    assert CRYPTO.EVP_EncryptInit_ex(context, None, None, key, iv)
    assert CRYPTO.EVP_EncryptUpdate(context, out, ctypes.byref(length), plain, len(plain))
    return out.raw[:length.value]


def container(plain, length=None, password=PASSWORD, iv=bytes(8), version=2, rest=bytes(6), salt=bytes(8)):
    """The container of `plain`; its header says `length` where one is given."""
    length = (len(plain) if length is None else length).to_bytes(8, "little", signed=True)
    block = ALGORITHM.to_bytes(4, "little") + length + MARKER
    digest = keccak(256, block.ljust(256, b"\0"))
    record = version.to_bytes(2, "little") + digest + rest + length + salt + plain
    key = keccak(512, password)[:56] if password else bytes(56)
    return blowfish_cbc(key, iv, record + bytes(-len(record) % 8)).hex().upper()


def pattern(size):
    return bytes(i % 251 for i in range(size))


def vector(kind, text, plain=None, password=PASSWORD, iv=bytes(8)):
    outcome = "5,4005" if plain is None else plain.hex().upper() or "-"
    print(kind, password.decode() or "-", iv.hex(), text, outcome)


def main():
    print("# OpenSSL's Blowfish with keys of 448 bits and Botan's Keccak; made by generate/containers.py.")
    print("# Kind, password, IV, container, plain bytes or error; - for nothing. Enciphering gives those of the")
    print("# kind \"both\"; deciphering takes all.")
    for size in (1, 7, 8, 9, 55, 56, 57, 100):
        vector("both", container(pattern(size)), pattern(size))
    vector("both", container(b"secret", password=b""), b"secret", password=b"")
    iv = bytes(range(1, 9))
    vector("both", container(b"secret", password=b"another", iv=iv), b"secret", b"another", iv)
    vector("foreign", container(b"secret", salt=b"\x8f\x01\xff\x00\x7fZ\xaa\x55"), b"secret")
    vector("foreign", container(b"secret", version=9, rest=b"\xff" * 6), b"secret")
    vector("foreign", container(b""), b"")
    vector("foreign", container(b"secret" + b"\xee" * 42, length=6), b"secret")
    for length in (-1, -56, -57, -2**63, 9, 2**63 - 1, 2**63 - 56, 2**32):
        vector("foreign", container(b"12345678", length=length))


if __name__ == "__main__":
    main()
