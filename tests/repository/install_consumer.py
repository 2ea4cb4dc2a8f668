#!/usr/bin/env python3
"""Installs the package into a temporary folder, moves it, and builds and runs its users from there.

usage: install_consumer.py CMAKE BUILD_FOLDER CXX
"""

import os
import pathlib
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


def use_by_cmake(cmake, compiler, prefix, folder):
    run(cmake, "-S", CONSUMER, "-B", folder, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={prefix}",
        f"-DCMAKE_CXX_COMPILER={compiler}", "-DCMAKE_BUILD_TYPE=Debug")
    run(cmake, "--build", folder)
    run(folder / "consumer")
    run(folder / "tolvbase_consumer")


def use_by_pkg_config(compiler, prefix, folder):
    packages = next(prefix.rglob("vrex.data3d.pc")).parent
    for source, package in (("main.cpp", "vrex.data3d"), ("tolvbase.cpp", "tolvbase")):
        flags = run("pkg-config", "--cflags", "--libs", package, environment={"PKG_CONFIG_PATH": str(packages)})
        program = folder / f"by_pkg_config_{package}"
        run(compiler, "-std=c++20", CONSUMER / source, "-o", program, *flags.split())
        run(program, environment={"LD_LIBRARY_PATH": str(packages.parent)})


def main():
    cmake, build, compiler = sys.argv[1:4]
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        run(cmake, "--install", build, "--prefix", folder / "first")
        # Nothing in the installed tree may remember where it was put.
        prefix = (folder / "first").rename(folder / "moved")
        use_by_cmake(cmake, compiler, prefix, folder / "build")
        use_by_pkg_config(compiler, prefix, folder)
    print("install_consumer: found by CMake and by pkg-config, built and run")


if __name__ == "__main__":
    main()
