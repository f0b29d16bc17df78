# The two commands of the README:
#   make run                              the wizard
#   make run ARGS='input output template' an unattended run
#   make test                             build, then every test through ctest
# Both first install what is missing (tools/install-deps.sh) and build into
# build/, which mirrors the installed layout (bin/ beside share/corvalin/).

BUILD ?= build
ARGS ?=
GENERATOR ?= Ninja

.PHONY: all deps configure build run test install clean

all: build

deps:
	./tools/install-deps.sh

# Configured once; cmake itself re-runs when CMakeLists.txt changes.
$(BUILD)/CMakeCache.txt: | deps
	cmake -S . -B $(BUILD) -G $(GENERATOR)

configure: deps $(BUILD)/CMakeCache.txt

build: configure
	cmake --build $(BUILD)

run: build
	./$(BUILD)/bin/corvalin $(ARGS)

test: build
	ctest --test-dir $(BUILD) --output-on-failure

# make install PREFIX=/opt/corvalin
PREFIX ?= /usr/local
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

clean:
	rm -rf $(BUILD)
