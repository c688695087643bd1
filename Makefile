# The front door. Every target installs what it needs, configures and builds by itself.

program := build/linux/program
windows_program := build/windows-x86/program
jobs := $(shell nproc)
PREFIX := /usr/local
DESTDIR :=
version := $(shell sed -n 's/^project.Discwright VERSION \([^ ]*\) .*/\1/p' CMakeLists.txt)
package := build/discwright-$(version)-linux-$(shell uname -m).tar.gz

.PHONY: help program wizard install uninstall package windows iso rescue boot test test-asan screenshots bench faults lint format clean

help:
	@echo "make wizard     builds the program and opens its window"
	@echo "make iso        makes the example CD image, build/vexacd.iso"
	@echo "make rescue     makes a CD image with rescue systems of Debian, build/rescue.iso; see examples/rescue"
	@echo "make boot       starts build/vexacd.iso, or the file of IMAGE=FILE, on a PC in an emulator"
	@echo "make program    builds the program folder, $(program)"
	@echo "make install    installs the program for all users below PREFIX, $(PREFIX); DESTDIR=FOLDER puts a folder before it"
	@echo "make uninstall  removes what make install has installed there"
	@echo "make package    packs the program folder, $(package)"
	@echo "make windows    builds the program folder for Windows, $(windows_program)"
	@echo "make check      builds and runs the unit tests for Linux, but for the slowest: after each small change"
	@echo "make test       builds and runs every test: test-linux, then test-windows"
	@echo "make test-linux    those of the Linux programs: unit tests, whole builds, starts in an emulator"
	@echo "make test-windows  those of the Windows programs, under Wine"
	@echo "make test-asan  test-linux under the address and undefined behaviour sanitizers"
	@echo "make screenshots  draws the pictures of README.md anew"
	@echo "make bench      measures and prints ratios"
	@echo "make faults     makes system calls of whole builds fail, one at a time: some 5,000, in about an hour"
	@echo "make lint       runs the checkers"
	@echo "make format     formats the sources"
	@echo "make clean      removes everything that was built"

program:
	scripts/bootstrap.sh build
	cmake --preset linux -DDISCWRIGHT_TESTS=OFF --log-level=WARNING
	cmake --build --preset linux -j $(jobs)

install: program
	umask 022 && DESTDIR="$(DESTDIR)" cmake --install build/linux --prefix "$(PREFIX)"

uninstall:
	scripts/uninstall.sh "$(DESTDIR)$(PREFIX)"

package: program
	scripts/package.sh build/linux "$(package)"

wizard: program
	$(program)/discwright

iso: program
	$(program)/discwright-build --session examples/rescue_cd.ini -o build/vexacd.iso

rescue: program
	scripts/bootstrap.sh rescue
	rm -rf build/rescue
	examples/rescue/collect.sh build/rescue
	$(program)/discwright-build --session examples/rescue/rescue.ini -o build/rescue.iso

# IMAGE=FILE starts another image.
boot: $(if $(IMAGE),,iso)
	scripts/bootstrap.sh boot
	@scripts/boot.sh "$(or $(IMAGE),build/vexacd.iso)"

windows:
	scripts/bootstrap.sh windows
	cmake --preset windows-x86 -DDISCWRIGHT_TESTS=OFF --log-level=WARNING
	cmake --build --preset windows-x86 -j $(jobs)
	ctest --preset windows-x86

# What takes seconds by itself: a hundred thousand files, gigabytes.
slow_tests := ManyFiles.*:LargeTrees.*:Readers.FileOfMoreThan2GiB*:Creating.TwentyThousand*:CopyFile.LargeFile_*
check: configured build/linux/scripts_tested
	@cmake --build --preset linux -j $(jobs) --target unit_tests
	@GTEST_FILTER='-$(slow_tests)' scripts/run_tests.sh linux -L unit
	@echo "Left out: $(slow_tests)"

# Packages and the configuration are looked at when there is none yet; ninja sees by itself what is new in it.
configured:
	@grep -qs '^DISCWRIGHT_TESTS:[A-Z]*=ON' build/linux/CMakeCache.txt || \
		{ scripts/bootstrap.sh test && cmake --preset linux -DDISCWRIGHT_TESTS=ON --log-level=WARNING; }

build/linux/scripts_tested: $(wildcard scripts/* tests/scripts/*) | configured
	@scripts/run_tests.sh linux -L scripts
	@touch $@

test: test-linux test-windows

test-linux:
	scripts/bootstrap.sh test
	cmake --preset linux -DDISCWRIGHT_TESTS=ON --log-level=WARNING
	cmake --build --preset linux -j $(jobs)
	scripts/run_tests.sh linux -LE windows

test-windows:
	scripts/test_windows.sh

test-asan:
	scripts/bootstrap.sh test
	cmake --preset linux-asan -DDISCWRIGHT_TESTS=ON --log-level=WARNING
	cmake --build --preset linux-asan -j $(jobs)
	scripts/run_tests.sh linux-asan

# The pictures of README.md, as the tests of the window and of the boot menu draw them.
screenshots: configured
	cmake --build --preset linux -j $(jobs) --target window_test end_to_end_test
	build/linux/tests/window_test --gtest_filter='*Screenshot*' --gtest_brief=1
	build/linux/tests/end_to_end_test --gtest_filter='BootMenu.Picture*' --gtest_brief=1
	cp build/linux/tests/screenshots/boot_menu.png packaging/screenshots/boot_menu.png
	cp build/linux/tests/screenshots/page1_light.png packaging/screenshots/contents.png
	cp build/linux/tests/screenshots/page10_light.png packaging/screenshots/progress.png
	cp build/linux/tests/screenshots/page9_dark.png packaging/screenshots/finish.png

bench: program
	scripts/bootstrap.sh bench
	cmake --build --preset linux -j $(jobs) --target bench_copy_tree bench_window_build
	python3 bench/run.py

# FAULTS="--sample 200 --seed 7" draws some of them; see scripts/faults.py --help.
faults: program
	scripts/bootstrap.sh faults
	python3 -B scripts/faults.py $(FAULTS)

lint:
	scripts/bootstrap.sh lint
	cmake --preset linux-asan -DDISCWRIGHT_TESTS=ON --log-level=WARNING
	cmake --preset windows-x86 --log-level=WARNING
	scripts/lint.sh build/linux-asan build/windows-x86

format:
	scripts/bootstrap.sh lint
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf build
