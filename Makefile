# Pentalink: the everyday commands. Each one installs what is missing, configures once and
# builds incrementally, so repeating a command with nothing changed does almost nothing.
.PHONY: all setup setup-fuzz configure build run test test-sanitize bench fuzz format install package clean

BUILD_DIR := build
SAN_DIR := build-sanitize
BENCH_DIR := build-bench
FUZZ_DIR := build-fuzz
# Seconds each fuzz target runs in `make fuzz`.
FUZZ_SECONDS ?= 60

all: build

setup:
	@bash scripts/setup-deps.sh

$(BUILD_DIR)/build.ninja: | setup
	cmake --preset default

configure: setup $(BUILD_DIR)/build.ninja

build: configure
	cmake --build --preset default

run: build
	@bash scripts/run.sh $(BUILD_DIR)/bin/pentalink

test: build
	ctest --preset default

$(SAN_DIR)/build.ninja: | setup
	cmake --preset sanitize

test-sanitize: setup $(SAN_DIR)/build.ninja
	cmake --build --preset sanitize --target nodisplay-tests
	ctest --preset sanitize

$(BENCH_DIR)/build.ninja: | setup
	cmake --preset bench

# Google Benchmark programs: dictionary loads, the literal and the indexed generator, memory,
# container restores.
bench: setup $(BENCH_DIR)/build.ninja
	cmake --build --preset bench
	$(BENCH_DIR)/bin/bench_dictionary
	$(BENCH_DIR)/bin/bench_generator
	$(BENCH_DIR)/bin/bench_memory
	$(BENCH_DIR)/bin/bench_container

# libFuzzer targets (fuzz/), built with clang under ASan and UBSan; each runs FUZZ_SECONDS.
setup-fuzz:
	@bash scripts/setup-deps.sh fuzz

$(FUZZ_DIR)/build.ninja: | setup-fuzz
	cmake --preset fuzz

fuzz: setup-fuzz $(FUZZ_DIR)/build.ninja
	cmake --build --preset fuzz
	@bash scripts/run-fuzz.sh $(FUZZ_DIR) $(FUZZ_SECONDS)

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD_DIR) $(SAN_DIR) $(BENCH_DIR) $(FUZZ_DIR)
