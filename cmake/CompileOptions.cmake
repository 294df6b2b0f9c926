# One set of compile options for every target. The sound depends on the order of evaluation: no fast math,
# and no contraction, which would change results from machine to machine.
add_compile_options(-ffp-contract=off -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion)

# Kernels pass wide vectors between inlined functions only, so how they would be passed is no matter.
add_compile_options(-Wno-psabi)

# Nobody reads errno behind a square root; with it, vectors of roots would run lane by lane.
add_compile_options(-fno-math-errno)

# Unique symbols would keep the plug-in in memory after the host unloads it.
add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)

if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  add_compile_options(-march=x86-64-v2)
endif()

if(VELMORA_SANITIZE)
  add_compile_options(-fsanitize=${VELMORA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${VELMORA_SANITIZE})
endif()
