# Every target does its own set-up on a Debian 12 machine: missing packages are installed when run as root, else named.

.PHONY: demo test test-native test-asan test-long test-windows test-windows-x86 test-windows-long fuzz dll release screenshots \
	bench bench-windows tidy format format-check clean setup setup-windows setup-checks setup-fuzz

demo: build/release/kestrune-workbench
	build/release/kestrune-workbench demo

# The Windows tests are left out, aloud, where Wine or the cross compiler cannot be installed.
test: test-native
	@if scripts/setup.sh windows; then $(MAKE) test-windows; else \
	  echo '*** NOT RUN: the tests of the Windows build. Its tools are missing and cannot be installed. ***' >&2; fi

test-native: setup
	cmake --preset debug
	cmake --build --preset debug
	ctest --preset debug -j2

# The native tests once more, under the address and undefined-behaviour sanitizers.
test-asan: setup
	cmake --preset asan
	cmake --build --preset asan
	ctest --preset asan -j2

# What takes minutes: imports that are killed, at full speed, and a thousand in one process, under the sanitizers.
test-long: setup
	cmake --preset release
	cmake --build --preset release --target long-tests
	build/release/tests/long-tests --gtest_filter='KilledImport.*'
	cmake --preset asan
	cmake --build --preset asan --target long-tests
	build/asan/tests/long-tests --gtest_filter='LongRun.*'

# The native kestrune-workbench prepares the data of the sessions that are played on real windows.
test-windows: setup setup-windows
	cmake --preset debug
	cmake --build --preset debug --target kestrune-workbench
	cmake --preset windows-x86
	cmake --build --preset windows-x86 --target Kestrune
	scripts/windows-tests.sh

# The same for the i686 build, in a 32-bit Debian below build/ (root needed, 1 GB, kept). Left out, aloud, where that cannot be.
test-windows-x86: setup setup-windows
	cmake --preset debug
	cmake --build --preset debug --target kestrune-workbench
	cmake --preset windows
	cmake --build --preset windows --target Kestrune
	@if scripts/debian-i386.sh; then scripts/windows-tests.sh build/windows-x86; else \
	  echo '*** NOT RUN: the tests of the i686 build. The 32-bit Debian cannot be set up. ***' >&2; fi

# What takes minutes: DOORS and the host are killed in the middle of imports, and one host imports a thousand times.
test-windows-long: setup setup-windows
	cmake --preset windows
	cmake --build --preset windows --target long-tests
	scripts/wine.sh --limit 3600 build/windows wine build/windows/tests/windows/long/long-tests.exe

# Every reader of foreign input with input made for it, FUZZ_SECONDS each; the callbacks of the DLL where Wine is.
FUZZ_SECONDS = 60
fuzz: setup setup-fuzz
	cmake --preset fuzz
	cmake --build --preset fuzz --target fuzzers
	scripts/fuzz.sh $(FUZZ_SECONDS)
	@if scripts/setup.sh windows; then scripts/fuzz-windows.sh $(FUZZ_SECONDS); else \
	  echo '*** NOT RUN: the callbacks of the Windows build. Its tools are missing and cannot be installed. ***' >&2; fi

# Kestrune.dll for both architectures: build/windows and build/windows-x86.
dll: setup setup-windows
	cmake --preset windows
	cmake --build --preset windows --target Kestrune
	cmake --preset windows-x86
	cmake --build --preset windows-x86 --target Kestrune

# What users get, into build/release-<version>: the same bytes from the same commit.
release: setup setup-windows
	scripts/release.sh

# The pictures of all dialogs in docs/images.
screenshots: setup setup-windows
	cmake --preset windows
	scripts/screenshots.sh build/windows

bench: setup
	cmake --preset release
	cmake --build --preset release --target kestrune-bench
	build/release/bench/kestrune-bench

# What reads, as a Windows program beside bare MSXML.
bench-windows: setup setup-windows
	scripts/bench-windows.sh

build/release/kestrune-workbench: setup
	cmake --preset release
	cmake --build --preset release --target kestrune-workbench

sources = $(shell git ls-files '*.cpp' '*.h')

format: setup-checks
	clang-format -i $(sources)

format-check: setup-checks
	clang-format --dry-run --Werror $(sources) || { echo 'Run "make format".' >&2; exit 1; }

# All but what needs the headers of Windows. The deprecated function is one that libstdc++ 12 uses itself.
tidied = $(shell git ls-files $(foreach room,platform orim common doors options documents import addin standins workbench, \
  '$(room)/*.cpp') | grep -v -e /windows/ -e /com/)

tidy: setup setup-checks
	cmake --preset tidy
	clang-tidy-19 -p build/tidy --quiet --extra-arg=-Wno-unknown-warning-option \
	  --extra-arg=-Wno-deprecated-declarations $(tidied)

setup:
	@scripts/setup.sh

setup-windows:
	@scripts/setup.sh windows

setup-checks:
	@scripts/setup.sh checks

setup-fuzz:
	@scripts/setup.sh fuzz

clean:
	rm -rf build
