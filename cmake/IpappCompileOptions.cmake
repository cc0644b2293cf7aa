# Warnings are errors everywhere; sanitizers on request.
add_compile_options(-Wall -Wextra -Werror)

if(IPAPP_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
