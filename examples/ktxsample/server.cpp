#include "ktxsample.h"

#include <cstdio>

using namespace orvet;

namespace {

/// The number of the server of that name, from 1; 0 for none.
int find_server(const scan_cfg & cfg, const ustring & name)
{
    for (int n = 1; n <= cfg.server_count(); ++n) {
        keyval line(static_cast<const ustring &>(*cfg.server_lines()[static_cast<unsigned>(n - 1)]));
        line.getval("SERVER:");
        if (line == name)
            return n;
    }
    return 0;
}

} // namespace

int choose_server(const input_parms & ip)
{
    pathname path = ip.ip_input_dir();
    path += "brod.cfg";

    // A run that was cut off may have left the file under its backup's name.
    static_cast<void>(scan_cfg::recover(path)); // where it fails, `load` does as well
    scan_cfg cfg(path.text());
    if (cfg.load() != 0)
        return 1;
    cfg.show();

    const ustring & name = ip.ip_srv_name();
    if (name.length() == 0)
        return 0;
    const int n = find_server(cfg, name);
    if (n == 0) {
        std::printf("There is no server %s.\n", name.mbcs_str());
        return 1;
    }
    if (cfg.set_server(n) != 0) {
        std::printf("%s\n", cfg.error_text().mbcs_str());
        return 1;
    }
    std::printf(n == 1 ? "Server %s is the first already.\n" : "Server %s is the first now.\n",
                name.mbcs_str());
    return 0;
}
