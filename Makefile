# Every target does its own set-up on a Debian 12 machine: missing packages are installed when run as root, else named.

.PHONY: demo test test-debug test-asan bench tidy format format-check clean setup

demo: build/release/kestrune-workbench
	build/release/kestrune-workbench demo

test: test-debug

# test-asan: the same under the address and undefined-behaviour sanitizers.

test-debug test-asan: test-%: setup
	cmake --preset $*
	cmake --build --preset $*
	ctest --preset $* -j2

bench: setup
	cmake --preset release
	cmake --build --preset release --target kestrune-bench
	build/release/bench/kestrune-bench

build/release/kestrune-workbench: setup
	cmake --preset release
	cmake --build --preset release --target kestrune-workbench

sources = $(shell git ls-files '*.cpp' '*.h')

format:
	clang-format -i $(sources)

format-check:
	clang-format --dry-run --Werror $(sources) || { echo 'Run "make format".' >&2; exit 1; }

tidy: setup
	cmake --preset debug
	clang-tidy -p build/debug --quiet $(filter %.cpp,$(sources))

setup:
	@scripts/setup.sh

clean:
	rm -rf build
