"""Compares commands as whole processes.

pairs.py tools FILE BENCH_DIGEST     digests of FILE by our core and by other tools
pairs.py start KESTRUM MINIMAL QUIT  a start of the program and of a minimal one, QUIT in front of both
pairs.py systems FILE NATIVE WINE WINDOWS  rates of the Windows hash core under WINE over those of the native one

Commands run in turn, A B A B ..., as machines drift; what is printed is the median of the ratios of the pairs.
"""

import os
import re
import statistics
import subprocess
import sys
import tempfile
import time

PAIRS = 21


def run(command, environment):
    """Wall seconds, CPU seconds and peak memory (KiB) of one run."""
    begin = time.monotonic()
    output = os.open(os.devnull, os.O_WRONLY)
    actions = [(os.POSIX_SPAWN_DUP2, output, 1), (os.POSIX_SPAWN_DUP2, output, 2)]
    pid = os.posix_spawnp(command[0], command, environment, file_actions=actions)
    os.close(output)
    _, status, usage = os.wait4(pid, 0)
    if status != 0:
        sys.exit(f"{command[0]} failed with status {status}")
    return time.monotonic() - begin, usage.ru_utime + usage.ru_stime, usage.ru_maxrss


def ratios(ours, other, environment, other_environment=None):
    """The median ratios ours/other of wall time, CPU time and peak memory."""
    other_environment = other_environment or environment
    run(ours, environment)
    run(other, other_environment)
    rows = []
    for _ in range(PAIRS):
        first = run(ours, environment)
        second = run(other, other_environment)
        rows.append([a / b for a, b in zip(first, second)])
    return [statistics.median(column) for column in zip(*rows)]


def compare_tools(path, digest):
    peers = [
        ("SHA-256", ["sha256sum", path]),
        ("SHA-256", ["openssl", "dgst", "-sha256", path]),
        ("SHA-256", ["botan", "hash", "--algo=SHA-256", path]),
        ("SHA-256", ["rhash", "--sha256", path]),
        ("SHA-512", ["sha512sum", path]),
        ("SHA-512", ["openssl", "dgst", "-sha512", path]),
        ("MD5", ["md5sum", path]),
        ("SHA1", ["sha1sum", path]),
        ("Whirlpool", ["rhash", "--whirlpool", path]),
        ("Tiger-192", ["rhash", "--tiger", path]),
        ("RIPEMD-160", ["botan", "hash", "--algo=RIPEMD-160", path]),
        ("CRC32", ["rhash", "--crc32", path]),
        ("Skein512-512", ["botan", "hash", "--algo=Skein-512(512)", path]),
    ]
    print("| algorithm | other tool | wall | CPU |")
    print("| --- | --- | --- | --- |")
    for algorithm, peer in peers:
        wall, cpu, _ = ratios([digest, algorithm, path], peer, dict(os.environ))
        print(f"| {algorithm} | `{' '.join(peer[:-1])}` | {wall:.2f} | {cpu:.2f} |", flush=True)


def compare_start(program, minimal, quit_library):
    with tempfile.TemporaryDirectory() as scratch:
        environment = dict(os.environ, LD_PRELOAD=quit_library, XDG_CONFIG_HOME=scratch, XDG_DATA_HOME=scratch)
        wall, cpu, memory = ratios([program], [minimal], environment)
    print("| | wall | CPU | peak memory |")
    print("| --- | --- | --- | --- |")
    print(f"| start of the program / of a minimal one | {wall:.2f} | {cpu:.2f} | {memory:.2f} |")


def hash_seconds(command):
    """The seconds that bench_digest says its run took, the start of the process left out."""
    answer = subprocess.run(command, capture_output=True, text=True, check=True)
    return float(re.search(r"seconds ([0-9.]+)", answer.stderr).group(1))


def compare_systems(path, native, wine, windows):
    print("| algorithm | rate under Wine / rate on Linux |")
    print("| --- | --- |")
    for algorithm in ("SHA-256", "Skein512-512"):
        on_linux, under_wine = [native, algorithm, path], [wine, windows, algorithm, "Z:" + path]
        hash_seconds(on_linux), hash_seconds(under_wine)
        rates = [hash_seconds(on_linux) / hash_seconds(under_wine) for _ in range(PAIRS)]
        print(f"| {algorithm} | {statistics.median(rates):.2f} |", flush=True)


if __name__ == "__main__":
    if len(sys.argv) == 4 and sys.argv[1] == "tools":
        compare_tools(sys.argv[2], sys.argv[3])
    elif len(sys.argv) == 5 and sys.argv[1] == "start":
        compare_start(*sys.argv[2:])
    elif len(sys.argv) == 6 and sys.argv[1] == "systems":
        compare_systems(*sys.argv[2:])
    else:
        sys.exit(__doc__)
