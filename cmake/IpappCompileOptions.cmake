# Warnings everywhere, errors with IPAPP_WERROR; sanitizers on request.
add_compile_options(-Wall -Wextra $<$<BOOL:${IPAPP_WERROR}>:-Werror>)

if(IPAPP_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# The fuzz build instruments every library for libFuzzer's coverage; only the
# fuzz targets link libFuzzer itself (fuzz/CMakeLists.txt).
if(IPAPP_BUILD_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "IPAPP_BUILD_FUZZ needs clang: configure with "
                            "-DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++")
    endif()
    add_compile_options(-fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
