// Every reader of the library on generated files. The first byte says which; the rest is the file. Nothing is
// expected of the results: the sanitizers tell.
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include <orvet/orvet.h>

namespace {

constexpr char file_name[] = "fuzz_input.tmp";

void read_scan_result()
{
    orvet::kt_file file{orvet::pathname(file_name)};
    orvet::vector topv;
    orvet::ustring server;
    if (file.open("r") == 0 && file.load_top(server, topv) == 0)
        file.load_offsets(topv);
    file.close();
}

void read_input_file(int file_type, const char * separator)
{
    orvet::file_input_parms input;
    input.get_fips(file_name, 1, separator, file_type);
}

void read_configuration()
{
    orvet::scan_cfg cfg(file_name);
    orvet::vector pairs;
    if (cfg.load() == 0)
        cfg.fill_vector(pairs);
}

void take_texts_apart(const uint8_t * data, std::size_t size)
{
    std::FILE * const stream = std::fopen(file_name, "rb");
    orvet::ustring line;
    while (line.getline(stream)) {
        orvet::ustring out;
        orvet::usprintf(out, line.mbcs_str(), "text", 7);
        orvet::get_token(line, size > 0 ? data[0] : 0);
        orvet::resolve_tokens(line);
        orvet::brod_base::canned_file(line);
    }
    std::fclose(stream);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t * data, std::size_t size)
{
    if (size == 0)
        return 0;
    orvet::trace::set_stream(orvet::log::wa(), nullptr); // its lines are made all the same
    orvet::trace::set_stream(orvet::system_trace::wa(), nullptr);
    orvet::trace::set_level(orvet::system_trace::wa(), *data & 0x80 ? 0 : 6);
    std::FILE * const file = std::fopen(file_name, "wb");
    std::fwrite(data + 1, 1, size - 1, file);
    std::fclose(file);
    switch (*data & 7) {
    case 0:
    case 1:
        read_scan_result();
        break;
    case 2:
        read_input_file(1, "TARGET=");
        break;
    case 3:
        read_input_file(2, "PROFILE NAME=");
        break;
    case 4:
        read_input_file(3, "USER=");
        break;
    case 5:
        read_configuration();
        break;
    default:
        take_texts_apart(data + 1, size - 1);
    }
    return 0;
}
