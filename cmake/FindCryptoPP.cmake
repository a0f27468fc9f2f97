# Finds Crypto++ under either of its names and makes the target CryptoPP::CryptoPP, whose headers are <cryptopp/...>.

find_path(CryptoPP_INCLUDE_DIR NAMES cryptopp/cryptlib.h crypto++/cryptlib.h)
if(KESTRUM_SHARED_CRYPTOPP)
    find_library(CryptoPP_LIBRARY NAMES libcrypto++.so libcryptopp.so)
else()
    # The archive first: of the shared library with its many symbols every start would pay for all, and use a few.
    find_library(CryptoPP_LIBRARY NAMES libcrypto++.a libcryptopp.a crypto++ cryptopp)
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CryptoPP REQUIRED_VARS CryptoPP_LIBRARY CryptoPP_INCLUDE_DIR)

if(CryptoPP_FOUND AND NOT TARGET CryptoPP::CryptoPP)
    set(include_folder ${CryptoPP_INCLUDE_DIR})
    if(NOT EXISTS ${include_folder}/cryptopp)
        set(include_folder ${PROJECT_BINARY_DIR}/CMakeFiles/cryptopp-headers)
        file(MAKE_DIRECTORY ${include_folder})
        file(CREATE_LINK ${CryptoPP_INCLUDE_DIR}/crypto++ ${include_folder}/cryptopp SYMBOLIC)
    endif()
    add_library(CryptoPP::CryptoPP UNKNOWN IMPORTED)
    set_target_properties(CryptoPP::CryptoPP PROPERTIES
        IMPORTED_LOCATION ${CryptoPP_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${include_folder})
endif()
mark_as_advanced(CryptoPP_INCLUDE_DIR CryptoPP_LIBRARY)
