# Finds Crypto++ as Debian lays it out (headers below crypto++/) and makes the target CryptoPP::CryptoPP.

find_path(CryptoPP_INCLUDE_DIR crypto++/cryptlib.h)
# The archive first: of the shared library with its many symbols every start would pay for all, and use a few.
find_library(CryptoPP_LIBRARY NAMES libcrypto++.a crypto++ cryptopp)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CryptoPP REQUIRED_VARS CryptoPP_LIBRARY CryptoPP_INCLUDE_DIR)

if(CryptoPP_FOUND AND NOT TARGET CryptoPP::CryptoPP)
    add_library(CryptoPP::CryptoPP UNKNOWN IMPORTED)
    set_target_properties(CryptoPP::CryptoPP PROPERTIES
        IMPORTED_LOCATION ${CryptoPP_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${CryptoPP_INCLUDE_DIR})
endif()
mark_as_advanced(CryptoPP_INCLUDE_DIR CryptoPP_LIBRARY)
