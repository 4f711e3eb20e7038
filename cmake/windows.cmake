# What every target of a Windows build needs.
enable_language(RC)

add_compile_definitions(WIN32_LEAN_AND_MEAN)

# A wide character has 16 bits here: what portable code asks about larger ones is always false.
add_compile_options(-Wno-type-limits)

add_compile_options(-Wno-stringop-overread)  # a false alarm on the library's strings

# The compiler's runtime is inside each library and program, so that none needs a file of it beside it. Memory
# is the system's and may cross from one to another; exceptions and error categories may not.
add_link_options(-static)
# What is built twice from the same sources is the same.
add_link_options(LINKER:--no-insert-timestamp)
