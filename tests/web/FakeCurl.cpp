// A library with libcurl's names that sends nothing. With KESTRUM_INCOMPLETE the last name is missing.

#include "web/FakeCurl.h"

#include <csignal>
#include <cstdarg>

extern "C" {

FakeCurl fake_curl;

int curl_easy_setopt(void* /*handle*/, int option, ...)
{
    std::va_list values;
    va_start(values, option);
    std::string& options = fake_curl.options;
    options += std::to_string(option) + '=';
    if (option < 10000)
        options += std::to_string(va_arg(values, long));
    else if (option == 10002 || option == 10004 || option == 10018 || option == 10175 || option == 10176)
        options += va_arg(values, const char*);
    options += ' ';
    va_end(values);
    return option == fake_curl.refusedOption ? 48 : 0;
}

int curl_easy_perform(void* /*handle*/)
{
#ifdef SIGPIPE
    std::raise(SIGPIPE); // as a write to a server that has gone does
#endif
    return fake_curl.performCode;
}

int curl_easy_getinfo(void* /*handle*/, int /*info*/, long* status)
{
    *status = fake_curl.status;
    return fake_curl.infoCode;
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
