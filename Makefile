# Pentalink: the everyday commands. Each one installs what is missing, configures once and
# builds incrementally, so repeating a command with nothing changed does almost nothing.
.PHONY: all setup setup-package setup-fuzz configure build run test test-x11 test-sanitize bench fuzz format install package clean

BUILD_DIR := build
SAN_DIR := build-sanitize
BENCH_DIR := build-bench
PKG_DIR := build-package
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

# Checks for a display first, then builds only the game (not the tests) and starts it.
run:
	@MAKE="$(MAKE)" bash scripts/run.sh $(BUILD_DIR)

test: build
	ctest --preset default

# The tests that need a real X server, on a virtual one with a 24-bit screen (xvfb-run's own
# default is 8 bits, which would change every colour).
test-x11: build
	xvfb-run -a -s "-screen 0 1280x1024x24" ctest --preset x11

$(SAN_DIR)/build.ninja: | setup
	cmake --preset sanitize

test-sanitize: setup $(SAN_DIR)/build.ninja
	cmake --build --preset sanitize --target nodisplay-tests
	ctest --preset sanitize

$(BENCH_DIR)/build.ninja: | setup
	cmake --preset bench

# Google Benchmark programs: dictionary loads, the literal and the indexed generator, memory,
# container restores, a pentalink-gen booklet.
bench: setup $(BENCH_DIR)/build.ninja
	cmake --build --preset bench
	$(BENCH_DIR)/bin/bench_dictionary
	$(BENCH_DIR)/bin/bench_generator
	$(BENCH_DIR)/bin/bench_memory
	$(BENCH_DIR)/bin/bench_container
	$(BENCH_DIR)/bin/bench_booklet

# libFuzzer targets (fuzz/), built with clang under ASan and UBSan; each runs FUZZ_SECONDS.
setup-fuzz:
	@bash scripts/setup-deps.sh fuzz

$(FUZZ_DIR)/build.ninja: | setup-fuzz
	cmake --preset fuzz

fuzz: setup-fuzz $(FUZZ_DIR)/build.ninja
	cmake --build --preset fuzz
	@bash scripts/run-fuzz.sh $(FUZZ_DIR) $(FUZZ_SECONDS)

# Installs the game, pentalink-gen, the data files, desktop entry, metainfo, icons and manual
# pages under PREFIX (default /usr/local); DESTDIR stages the install in another root.
PREFIX ?= /usr/local
install: build
	DESTDIR="$(DESTDIR)" cmake --install $(BUILD_DIR) --strip --prefix "$(PREFIX)"

# The Debian package build-package/pentalink_<version>_<arch>.deb, built with Debian's
# hardening flags from a separate optimised tree installed under /usr.
setup-package: setup
	@bash scripts/setup-deps.sh package

$(PKG_DIR)/build.ninja: | setup-package
	export DEB_BUILD_MAINT_OPTIONS=hardening=+all; \
	CXXFLAGS="$$(dpkg-buildflags --get CXXFLAGS) $$(dpkg-buildflags --get CPPFLAGS)" \
	LDFLAGS="$$(dpkg-buildflags --get LDFLAGS)" cmake --preset package

package: setup-package $(PKG_DIR)/build.ninja
	cmake --build --preset package
	cpack --preset package
	@ls $(PKG_DIR)/*.deb

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD_DIR) $(SAN_DIR) $(BENCH_DIR) $(PKG_DIR) $(FUZZ_DIR)
