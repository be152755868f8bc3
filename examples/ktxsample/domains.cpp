#include "ktxsample.h"

#include <cstdio>

int show_domains(const orvet::input_parms & ip)
{
    std::printf("%s\n", ip.ip_input_file().mbcs_str());
    return 0;
}
