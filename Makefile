# The two commands of the README:
#   make run                              the wizard
#   make run ARGS='input output template' an unattended run
#   make test                             build, then every test through ctest
# Both first install what is missing (tools/install-deps.sh) and build into
# build/, which mirrors the installed layout (bin/ beside share/corvalin/).

BUILD ?= build
ARGS ?=
GENERATOR ?= Ninja
# WERROR=1 makes every compiler warning an error (continuous integration).
WERROR ?=
WARNINGS = -DCORVALIN_WERROR=$(if $(WERROR),ON,OFF)

.PHONY: all deps configure build run test sanitize exercise exercise-ci bench fuzz soak soak-sanitize screenshots atspi \
  install package package-check clean

all: build

deps:
	./tools/install-deps.sh

# Configured once; cmake itself re-runs when CMakeLists.txt changes.
$(BUILD)/CMakeCache.txt: | deps
	cmake -S . -B $(BUILD) -G $(GENERATOR) $(WARNINGS)

configure: deps $(BUILD)/CMakeCache.txt

build: configure
	cmake --build $(BUILD)

# The program and its windows only: the tests are built by make test.
run: configure
	cmake --build $(BUILD) --target corvalin
	./$(BUILD)/bin/corvalin $(ARGS)

test: build
	ctest --test-dir $(BUILD) --output-on-failure -j$$(nproc)

# The whole suite again under AddressSanitizer and UndefinedBehaviorSanitizer.
# Freed blocks are filled with 0x55, so that Qt's code, which is not built
# with the sanitizer, faults on its first read of a widget already deleted.
SANITIZE_BUILD ?= build-sanitize
sanitize: deps
	cmake -S . -B $(SANITIZE_BUILD) -G $(GENERATOR) -DCORVALIN_SANITIZE=ON -DCORVALIN_BENCH=OFF $(WARNINGS)
	cmake --build $(SANITIZE_BUILD)
	ASAN_OPTIONS=detect_leaks=1:max_free_fill_size=1048576:free_fill_byte=85 UBSAN_OPTIONS=print_stacktrace=1 \
	  ctest --test-dir $(SANITIZE_BUILD) --output-on-failure -j$$(nproc)

# The exerciser (tools/exerciser/) on the sanitizer build of make sanitize:
# a person's random actions on the real windows over every input, for
# EXERCISE_ACTIONS actions each (or EXERCISE_SECONDS seconds each when set),
# from EXERCISE_SEED. A finding is shrunk, written under exercise-findings/,
# and fails the target. exercise-ci is the short run of continuous
# integration: 10 seconds an input, fixed seeds. Its stall limit is 10 s, not
# the 2 s of the long runs: a machine of unknown speed, busy with nothing
# else, must not fail it by being slow; the long runs are where a window
# that stops answering for 2 s is looked for.
EXERCISE_ACTIONS ?= 50000
EXERCISE_SECONDS ?=
EXERCISE_SEED ?= 1
EXERCISE_LIMIT = $(if $(EXERCISE_SECONDS),--seconds $(EXERCISE_SECONDS),--actions $(EXERCISE_ACTIONS))
exercise: deps
	cmake -S . -B $(SANITIZE_BUILD) -G $(GENERATOR) -DCORVALIN_SANITIZE=ON -DCORVALIN_BENCH=OFF $(WARNINGS)
	cmake --build $(SANITIZE_BUILD) --target exerciser
	./$(SANITIZE_BUILD)/tools/exerciser --input all --seed $(EXERCISE_SEED) $(EXERCISE_LIMIT)

exercise-ci: deps
	cmake -S . -B $(SANITIZE_BUILD) -G $(GENERATOR) -DCORVALIN_SANITIZE=ON -DCORVALIN_BENCH=OFF $(WARNINGS)
	cmake --build $(SANITIZE_BUILD) --target exerciser
	./$(SANITIZE_BUILD)/tools/exerciser --input all --seed 30 --seconds 10 --stall-ms 10000 --shrink-seconds 120

# The windows' tests and the end-to-end tests SOAK_ROUNDS times one at a
# time, then SOAK_ROUNDS times two at a time, stopping at the first failure
# (tools/soak.sh): on a Release build, or with soak-sanitize on the sanitizer
# build of make sanitize. Run it before a change to a window lands.
SOAK_BUILD ?= build-soak
SOAK_ROUNDS ?= 20
soak: deps
	cmake -S . -B $(SOAK_BUILD) -G $(GENERATOR) -DCMAKE_BUILD_TYPE=Release -DCORVALIN_BENCH=OFF
	cmake --build $(SOAK_BUILD)
	./tools/soak.sh $(SOAK_BUILD) $(SOAK_ROUNDS)

soak-sanitize: deps
	cmake -S . -B $(SANITIZE_BUILD) -G $(GENERATOR) -DCORVALIN_SANITIZE=ON -DCORVALIN_BENCH=OFF
	cmake --build $(SANITIZE_BUILD)
	./tools/soak.sh $(SANITIZE_BUILD) $(SOAK_ROUNDS)

# The benchmarks of docs/performance.md, on a Release build.
BENCH_BUILD ?= build-release
bench: deps
	./tools/install-deps.sh bench
	cmake -S . -B $(BENCH_BUILD) -G $(GENERATOR) -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF
	cmake --build $(BENCH_BUILD)
	./bench/run_load_bench.sh $(BENCH_BUILD)
	./bench/run_unattended_bench.sh $(BENCH_BUILD)
	./bench/run_peer_bench.sh $(BENCH_BUILD)
	./$(BENCH_BUILD)/bench/grid_window_bench
	./$(BENCH_BUILD)/bench/line_list_window_bench

# The fuzz targets of fuzz/, built with clang and run FUZZ_SECONDS each,
# FUZZ_JOBS at a time, from the seeds of fuzz/corpus/ (tools/run-fuzz.sh);
# FUZZ_TARGETS='fuzz_input_lines fuzz_pull_columns' runs only those.
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
FUZZ_JOBS ?= 1
FUZZ_TARGETS ?=
fuzz:
	./tools/install-deps.sh fuzz
	CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -G $(GENERATOR) -DCORVALIN_FUZZ=ON -DCORVALIN_DESKTOP=OFF \
	  -DCORVALIN_BENCH=OFF -DBUILD_TESTING=OFF
	cmake --build $(FUZZ_BUILD)
	./tools/run-fuzz.sh $(FUZZ_BUILD) $(FUZZ_SECONDS) $(FUZZ_JOBS) $(FUZZ_TARGETS)

# The screenshot tour under a virtual display: a PNG of each screen into
# docs/screenshots/ (tools/screenshots.sh); SCENE=20 runs the scenes whose
# names begin so.
SCENE ?=
screenshots: build
	./tools/screenshots.sh $(BUILD) $(SCENE)

# The first screen on a live accessibility bus, read as a screen reader
# reads it (tools/atspi-check.sh).
atspi: build
	./tools/atspi-check.sh $(BUILD)

# make install PREFIX=/opt/corvalin
PREFIX ?= /usr/local
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

# The Debian package, from the build tree of make test and with only what
# it installs built: $(BUILD)/package/corvalin_<version>_<arch>.deb
# (cmake/Packaging.cmake, docs/packaging.md).
package: configure
	cmake --build $(BUILD) --target corvalin corvalin_man
	cd $(BUILD) && cpack --config CPackConfig.cmake

# The package built, its dependencies looked at, and its program, unpacked,
# translating the lolo survey byte for byte as the built one does
# (tools/package-check.sh).
package-check: package
	./tools/package-check.sh $(BUILD)

clean:
	rm -rf $(BUILD)
