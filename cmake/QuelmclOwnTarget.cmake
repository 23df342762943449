# quelmcl_own_target(<target>): how our own code is compiled. Warnings are for us, so they are private to each target and never
# reach those who link with it.
function(quelmcl_own_target target)
  target_compile_features(${target} PRIVATE cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
    $<$<BOOL:${QUELMCL_WERROR}>:-Werror>)
endfunction()
