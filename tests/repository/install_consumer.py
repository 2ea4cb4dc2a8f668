#!/usr/bin/env python3
"""Installs the package into a temporary folder, moves it, and builds and runs its users from there.

usage: install_consumer.py CMAKE BUILD_FOLDER CXX
"""

import os
import pathlib
import platform
import re
import subprocess
import sys
import tempfile

CONSUMER = pathlib.Path(__file__).resolve().parent / "install_consumer"


def run(*command, environment=None):
    result = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                            env={**os.environ, **(environment or {})})
    if result.returncode:
        sys.exit(f"install_consumer: failed with {result.returncode}: {' '.join(map(str, command))}\n"
                 f"{result.stdout}{result.stderr}")
    return result.stdout


def can_fuse():
    """Whether this processor has fused multiply-add, and the compiler's option for it is -mfma."""
    info = pathlib.Path("/proc/cpuinfo")
    return (platform.machine() == "x86_64" and info.exists() and
            re.search(r"^flags.*\bfma\b", info.read_text(), re.M) is not None)


def expect_same_bits(outputs):
    if len(set(outputs.values())) != 1:
        sys.exit("install_consumer: formulas depend on how the user compiles\n" +
                 "".join(f"{name}:\n{text}" for name, text in outputs.items()))


def expect_files(prefix):
    for name in ("share/vrex.data3d/document.schema.json", "share/vrex.data3d/report.schema.json",
                 "share/man/man1/vrex.1", "share/bash-completion/completions/vrex"):
        if not (prefix / name).is_file():
            sys.exit(f"install_consumer: {name} is not where it should be")


def use_by_cmake(cmake, compiler, prefix, folder):
    run(cmake, "-S", CONSUMER, "-B", folder, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={prefix}",
        f"-DCMAKE_CXX_COMPILER={compiler}", "-DCMAKE_BUILD_TYPE=Debug",
        f"-DFUSED_VARIANT={'fused' if can_fuse() else ''}")
    run(cmake, "--build", folder)
    run(folder / "consumer")
    run(folder / "tolvbase_consumer")
    run(folder / "exchange_consumer")
    run(folder / "solver_consumer")
    if can_fuse():
        expect_same_bits({name: run(folder / f"formulas_{name}") for name in ("plain", "fused")})


def use_by_pkg_config(compiler, prefix, folder):
    packages = next(prefix.rglob("vrex.data3d.pc")).parent
    for source, package in (("main.cpp", "vrex.data3d"), ("exchange.cpp", "vrex.exchange"),
                            ("solver.cpp", "vrex.solver"), ("tolvbase.cpp", "tolvbase")):
        flags = run("pkg-config", "--cflags", "--libs", package, environment={"PKG_CONFIG_PATH": str(packages)})
        program = folder / f"by_pkg_config_{package}"
        run(compiler, "-std=c++20", CONSUMER / source, "-o", program, *flags.split())
        run(program, environment={"LD_LIBRARY_PATH": str(packages.parent)})
    if can_fuse():
        fuse_by_pkg_config(compiler, packages, folder)


def fuse_by_pkg_config(compiler, packages, folder):
    flags = run("pkg-config", "--cflags", "--libs", "vrex.data3d",
                environment={"PKG_CONFIG_PATH": str(packages)}).split()

    def printed(*options):
        program = folder / "formulas"
        run(compiler, "-std=c++20", "-O2", CONSUMER / "formulas.cpp", "-o", program, *flags, *options)
        return run(program, environment={"LD_LIBRARY_PATH": str(packages.parent)})

    plain = printed()
    expect_same_bits({"plain": plain, "fused": printed("-mfma")})
    # Against the package's flag each formula changes: the numbers would have told.
    against = printed("-mfma", "-ffp-contract=fast")
    same = set(plain.splitlines()) & set(against.splitlines())
    if same:
        sys.exit(f"install_consumer: formulas that fusing does not change prove nothing: {sorted(same)}")


def main():
    cmake, build, compiler = sys.argv[1:4]
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        run(cmake, "--install", build, "--prefix", folder / "first")
        # Nothing in the installed tree may remember where it was put.
        prefix = (folder / "first").rename(folder / "moved")
        expect_files(prefix)
        run(prefix / "bin" / "vrex", "--version")
        use_by_cmake(cmake, compiler, prefix, folder / "build")
        use_by_pkg_config(compiler, prefix, folder)
    print("install_consumer: found by CMake and by pkg-config, built and run" +
          ("" if can_fuse() else "; without fused multiply-add, so its bits were not compared"))


if __name__ == "__main__":
    main()
