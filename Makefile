# Quorvel quick start:
#   make run    build (Release) and start the calculator: the desktop window
#               when a display is available, else the console
#   make test   build and run every test, then again under ASan + UBSan, then
#               the fuzz targets (clang + libFuzzer) for FUZZ_SECONDS in all

PACKAGES := g++ make cmake libgtest-dev libgmock-dev libbenchmark-dev clang libclang-rt-14-dev qt6-base-dev fonts-crosextra-caladea
JOBS     ?= $(shell nproc 2>/dev/null || echo 2)
BUILD    := build/release
SANBUILD := build/sanitize
FUZZBUILD := build/fuzz
FUZZ_SECONDS ?= 60
# The checking builds (sanitizers, fuzzing) trade optimisation for build time:
# -O1 with line tables is what the sanitizer reports need.
CHECKFLAGS := -DCMAKE_BUILD_TYPE=RelWithDebInfo "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1 -g1 -DNDEBUG" -DQUORVEL_BENCH=OFF

.PHONY: run test deps build build-sanitize bench clean

run: build
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then ./$(BUILD)/quorvel; else ./$(BUILD)/quorvel --console; fi

test: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release
	cmake --build $(BUILD) -j $(JOBS)
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)
	cmake -S . -B $(SANBUILD) $(CHECKFLAGS) -DQUORVEL_SANITIZE=ON
	cmake --build $(SANBUILD) -j $(JOBS)
	cd $(SANBUILD) && ctest --output-on-failure -j $(JOBS)
	cmake -S . -B $(FUZZBUILD) -DCMAKE_CXX_COMPILER=clang++ $(CHECKFLAGS) -DQUORVEL_FUZZ=ON
	cmake --build $(FUZZBUILD) -j $(JOBS) --target fuzzers
	tests/fuzz/run_fuzz.sh $(FUZZBUILD)/tests/fuzz $(FUZZ_SECONDS)

build: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release
	cmake --build $(BUILD) -j $(JOBS)

bench: build
	./$(BUILD)/bench/quorvel_bench

# Installs the Debian packages the project needs when any is missing.
deps:
	@missing=""; for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  if [ "$$(id -u)" -ne 0 ]; then \
	    echo "Missing packages:$$missing"; \
	    echo "Run: sudo apt-get update && sudo apt-get install -y$$missing"; \
	    exit 1; \
	  fi; \
	  apt-get update && DEBIAN_FRONTEND=noninteractive apt-get install -y $$missing; \
	fi

clean:
	rm -rf build
