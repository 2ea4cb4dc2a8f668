# make run    takes two robots from their descriptions to solved documents in out/
# make test   builds everything; runs every test, plain and under the address and undefined-behaviour sanitizers
# make bench  builds and runs the benchmarks
# make docs   writes the reference pages to build/docs
JOBS ?= $(shell nproc)

.PHONY: run test bench docs setup clean
setup:
	@scripts/setup

run: setup
	@cmake --preset release --log-level=ERROR >/dev/null
	@cmake --build --preset release --target run -j $(JOBS) >build/run.log || { cat build/run.log; exit 1; }
	@build/release/examples/run examples/data out

test: setup
	cmake --preset release
	cmake --build --preset release -j $(JOBS)
	ctest --preset release -j $(JOBS)
	cmake --preset asan
	cmake --build --preset asan -j $(JOBS)
	ctest --preset asan -j $(JOBS)

bench: setup
	cmake --preset release
	cmake --build --preset release --target benchmarks -j $(JOBS)
	@for program in build/release/benchmarks/bench_*; do "$$program" || exit 1; done

docs: setup
	cmake --preset release
	cmake --build --preset release --target docs

clean:
	rm -rf build
