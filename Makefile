# The two commands of every new user and of CI:
#   make run   installs what is missing, builds, and starts TarvelonLow.exe under Wine
#   make test  installs what is missing, builds all three presets, runs every test
SHELL := /bin/bash

DEBIAN_PACKAGES := cmake make g++ g++-mingw-w64-x86-64 g++-mingw-w64-i686 \
	binutils-mingw-w64-x86-64 binutils-mingw-w64-i686 wine wine64 xvfb x11-apps \
	imagemagick googletest libgtest-dev libbenchmark-dev clang libclang-rt-14-dev python3 \
	nsis zip 7zip

BENCH_PACKAGES := hyperfine rhash 7zip openssl util-linux python3 hashdeep

.PHONY: run test bench build release stats screenshots deps clean

run: deps
	@tools/run-program.sh

test: deps
	@tests/run-all.sh

# Speed of the checksum engines against the usual tools: build/bench/results.md
bench: deps
	@tools/install-deps.sh $(BENCH_PACKAGES)
	@bench/run-bench.sh

# Installers and the portable archive: build/release/
release: deps
	@tools/make-release.sh

# The README's pictures, from the windows the last make test walked through
screenshots:
	@ls build/screenshots/*.png >/dev/null 2>&1 || { echo "No pictures yet: run make test first."; exit 1; }
	@cp build/screenshots/*.png docs/screenshots/ && echo "docs/screenshots/ now shows the last make test's windows."

# Lines of program and tests, and the tests' share of the program
stats:
	@tools/code-stats.sh

build: deps
	@for preset in native win64 win32; do \
		cmake --preset $$preset >/dev/null && cmake --build --preset $$preset -j "$$(nproc)" || exit 1; \
	done

deps:
	@tools/install-deps.sh $(DEBIAN_PACKAGES)

clean:
	rm -rf build
