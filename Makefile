# The two everyday commands are "make demo" and "make check"; the rest is in README.md.

BUILD := build/release
JOBS ?= $(shell nproc)
# The folder that receives the plug-in.
VST_DIR ?= $(HOME)/.vst
SYSTEM_VST_DIR ?= /usr/local/lib/vst

CONFIGURE_OPTIONS = $(if $(shell command -v ccache),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
BUILD_PRESET = cmake --preset $(1) $(CONFIGURE_OPTIONS) --log-level=WARNING && \
               cmake --build build/$(1) --parallel $(JOBS)

# Seconds for each fuzz target.
FUZZ_SECONDS ?= 30

.PHONY: all demo check check-sanitizers fuzz bench install install-system uninstall uninstall-system dependencies clean

all: dependencies
	@$(call BUILD_PRESET,release)

demo: dependencies
	@$(call BUILD_PRESET,release) --target velmora_mono velmora-render velmora-demo-source
	@scripts/demo.sh $(BUILD)

check: all fuzz
	@ctest --test-dir $(BUILD) --output-on-failure --no-tests=error --parallel $(JOBS)

# Address and undefined-behaviour sanitizers over everything, the thread sanitizer over what has threads.
check-sanitizers: dependencies
	@$(call BUILD_PRESET,asan)
	@ctest --test-dir build/asan --output-on-failure --no-tests=error --parallel $(JOBS)
	@$(call BUILD_PRESET,tsan)
	@ctest --test-dir build/tsan --output-on-failure --no-tests=error --label-regex threads

fuzz: dependencies
	@scripts/fuzz.sh $(FUZZ_SECONDS)

bench: all
	@scripts/bench.sh $(BUILD)

install: dependencies
	@$(call BUILD_PRESET,release) --target velmora_mono
	@cmake --install $(BUILD) --prefix "$(VST_DIR)"

uninstall:
	@cmake -DFOLDER="$(VST_DIR)" -P cmake/InstallRemove.cmake

install-system:
	@$(MAKE) --no-print-directory install VST_DIR="$(SYSTEM_VST_DIR)"

uninstall-system:
	@$(MAKE) --no-print-directory uninstall VST_DIR="$(SYSTEM_VST_DIR)"

dependencies:
	@scripts/install-dependencies.sh

clean:
	@rm -rf build
