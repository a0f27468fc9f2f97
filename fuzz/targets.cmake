# One name a line for each parser of outside text: <name>.cpp holds its LLVMFuzzerTestOneInput, corpus/<name> its
# seed inputs. The modules that it needs stand behind the name.
set(KESTRUM_FUZZ_TARGETS bom_detection expected_values properties_file_reader text_file_reader tr_res_reader
    translation_list utf8_file_reader)
set(KESTRUM_FUZZ_LINKS_bom_detection kestrum::file)
set(KESTRUM_FUZZ_LINKS_expected_values kestrum::compare)
set(KESTRUM_FUZZ_LINKS_properties_file_reader kestrum::file)
set(KESTRUM_FUZZ_LINKS_text_file_reader kestrum::file kestrum::text)
set(KESTRUM_FUZZ_LINKS_tr_res_reader kestrum::i18n)
set(KESTRUM_FUZZ_LINKS_translation_list kestrum::file kestrum::i18n)
set(KESTRUM_FUZZ_LINKS_utf8_file_reader kestrum::file)

# kestrum_fuzz_program(<program> <target> <further source>...)
#
# Makes a program of one target and whatever is to feed it.
function(kestrum_fuzz_program program target)
    add_executable(${program} ${PROJECT_SOURCE_DIR}/fuzz/${target}.cpp ${ARGN})
    target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${program} PRIVATE ${KESTRUM_FUZZ_LINKS_${target}} kestrum::warnings)
endfunction()
