# cmake -DOUTPUT=FILE -DSOURCES="ONE TWO .." -P together.cmake: several test files as one source, each in a namespace of
# its own, so that the private names of one are unknown to the others.
separate_arguments(SOURCES)
set(together "")
foreach(source IN LISTS SOURCES)
    file(READ "${source}" text)
    get_filename_component(name "${source}" NAME_WE)
    string(REGEX REPLACE "\nnamespace (kestrum[a-z:]*) {\n" "\nnamespace \\1 { namespace in_${name} {\n" text "${text}")
    string(REGEX REPLACE "\n}  // namespace kestrum[a-z:]*\n" "\n}}\n" text "${text}")
    string(APPEND together "#line 1 \"${source}\"\n${text}")
endforeach()
file(WRITE "${OUTPUT}" "${together}")
