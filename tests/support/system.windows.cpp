#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <windows.h>

#include "support.h"

namespace orvet_test {

void keep_crashes_quiet()
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
}
unsigned long process_number()
{
    return GetCurrentProcessId();
}

void print_open_files()
{
    for (std::uintptr_t value = 4; value < 0x1000; value += 4) {
        const auto handle = reinterpret_cast<HANDLE>(value);
        wchar_t file[MAX_PATH] = L"";
        if (GetFileType(handle) == FILE_TYPE_DISK &&
            GetFinalPathNameByHandleW(handle, file, MAX_PATH, FILE_NAME_NORMALIZED) != 0)
            std::printf("%s\n", std::filesystem::path(file).filename().string().c_str());
    }
}

std::string access_list(const char *, bool)
{
    return "";
}
bool ignore_children(bool wish)
{
    return !wish;
}
const char * const killed_command = nullptr;
std::shared_ptr<void> hold_file(const char * name)
{
    return {CreateFileA(name, GENERIC_READ, 0, nullptr, OPEN_ALWAYS, 0, nullptr), CloseHandle};
}

bool limit_files(long)
{
    return false;
}
bool make_pipe(const char *)
{
    return false;
}
bool give_to_another_group(const char *)
{
    return false;
}
void set_time_zone(const char * name)
{
    set_variable("TZ", name);
    _tzset();
}
void die()
{
    TerminateProcess(GetCurrentProcess(), 9);
    std::abort();
}

void set_variable(const char * name, const char * value)
{
    _putenv_s(name, value ? value : "");
}

} // namespace orvet_test
