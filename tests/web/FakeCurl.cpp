// A library with libcurl's names that sends nothing. With KESTRUM_INCOMPLETE the last name is missing.

#include "web/FakeCurl.h"

#include <cstdarg>
#include <cstdio>

namespace {

bool isText(int option)
{
    return option == 10002 || option == 10004 || option == 10018 || option == 10175 || option == 10176;
}

} // namespace

extern "C" {

FakeCurl fake_curl;

int curl_easy_setopt(void* /*handle*/, int option, ...)
{
    char* const end = fake_curl.options + fake_curl.length;
    const std::size_t room = sizeof fake_curl.options - fake_curl.length;
    std::va_list values;
    va_start(values, option);
    const int written = option < 10000 ? std::snprintf(end, room, "%d=%ld ", option, va_arg(values, long))
                        : isText(option)
                            ? std::snprintf(end, room, "%d=%s ", option, va_arg(values, const char*))
                            : std::snprintf(end, room, "%d= ", option);
    va_end(values);
    fake_curl.length += static_cast<unsigned>(written);
    return option == fake_curl.refusedOption ? 48 : 0;
}

int curl_easy_perform(void* /*handle*/)
{
    if (fake_curl.onPerform != nullptr)
        fake_curl.onPerform();
    return 0;
}

int curl_easy_getinfo(void* /*handle*/, int /*info*/, ...)
{
    return 0;
}

void* curl_easy_init()
{
    return fake_curl.hasNoHandle ? nullptr : &fake_curl;
}

void curl_global_init() {}
void curl_easy_cleanup(void* /*handle*/) {}
void curl_easy_duphandle() {}
void curl_easy_reset() {}
void curl_easy_recv() {}
void curl_easy_send() {}
void curl_slist_append() {}
#ifndef KESTRUM_INCOMPLETE
void curl_slist_free_all() {}
#endif
}
