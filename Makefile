# The front door. Every target installs what it needs, configures and builds by itself.

program := build/linux/program
jobs := $(shell nproc)

.PHONY: help program iso test test-asan bench lint format clean

help:
	@echo "make iso        makes the example CD image, build/vexacd.iso"
	@echo "make program    builds the program folder, $(program)"
	@echo "make test       builds and runs every test"
	@echo "make test-asan  the same under the address and undefined behaviour sanitizers"
	@echo "make bench      measures and prints ratios"
	@echo "make lint       runs the checkers"
	@echo "make format     formats the sources"
	@echo "make clean      removes everything that was built"

program:
	scripts/bootstrap.sh build
	cmake --preset linux -DDISCWRIGHT_TESTS=OFF --log-level=WARNING
	cmake --build --preset linux -j $(jobs)

iso: program
	$(program)/discwright-build --session examples/rescue_cd.ini -o build/vexacd.iso

test:
	scripts/bootstrap.sh test
	cmake --preset linux -DDISCWRIGHT_TESTS=ON --log-level=WARNING
	cmake --build --preset linux -j $(jobs)
	ctest --preset linux -j $(jobs)

test-asan:
	scripts/bootstrap.sh test
	cmake --preset linux-asan -DDISCWRIGHT_TESTS=ON --log-level=WARNING
	cmake --build --preset linux-asan -j $(jobs)
	ctest --preset linux-asan -j $(jobs)

bench: program
	scripts/bootstrap.sh bench
	cmake --build --preset linux -j $(jobs) --target bench_copy_tree
	python3 bench/run.py

lint:
	scripts/bootstrap.sh lint
	cmake --preset linux -DDISCWRIGHT_TESTS=ON --log-level=WARNING
	scripts/lint.sh build/linux

format:
	scripts/bootstrap.sh lint
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf build
