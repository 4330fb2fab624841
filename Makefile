# The front door: what a person types. CMake does the work; see CMakePresets.json.

JOBS := $(shell nproc)
export CMAKE_BUILD_PARALLEL_LEVEL ?= $(JOBS)
export CTEST_PARALLEL_LEVEL ?= $(JOBS)
export CCACHE_BASEDIR ?= $(CURDIR)
export CCACHE_NOHASHDIR ?= 1

FUZZ_SECONDS ?= 600

.PHONY: run test nightly bench tour guide-pictures package check deps build clean

run: deps build
	@scripts/run build/release

test: deps build
	@ctest --preset release --output-on-failure

# What takes too long for every day: the fault harness at every point, and each fuzz target for
# FUZZ_SECONDS.
nightly: deps build
	@BROVANTA_FAULTS=nightly build/release/bin/brovanta_faults_test
	@scripts/fuzz $(FUZZ_SECONDS)

bench: deps
	@cmake --preset bench > build/bench.log 2>&1 || { cat build/bench.log; exit 1; }
	@cmake --build --preset bench
	@scripts/bench build/bench

tour: deps build
	@scripts/tour build/release

guide-pictures: deps build
	@scripts/guide-pictures build/release

package: deps build
	@scripts/package build/release

check: deps
	@scripts/check

deps:
	@scripts/install-deps

build:
	@mkdir -p build
	@cmake --preset release > build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
	@cmake --build --preset release > build/build.log 2>&1 || { tail -n 60 build/build.log; exit 1; }

clean:
	@rm -rf build
