// Each public operation called once in the form that version 1.0.0 took, then in the forms that came later.
// It only has to compile: by each compiler, in each standard, with every warning an error.
#include <cstdarg>
#include <cstddef>
#include <filesystem>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <unordered_map>

#include <orvet/foundation/base/ustring_format.h>
#include <orvet/orvet.h>

namespace ov = orvet;

namespace all_calls {

template <class... Values>
void use(const Values &...)
{
}

void call_texts(std::FILE * stream, ov::codable & object)
{
    ov::ustring text("x"), part(text, 0, 1), moved(std::move(part));
    text.assign("x").assign(moved).assign(text, 0, 1).append("x").append(text);
    text.insert(0, "x").insert(0, text, 0, 1).remove(0).remove(0, 1).to_upper().to_lower(0, 1);
    text.strip(ov::ustring::strip_both, u' ') += "x";
    use(text.find(u'x'), text.find(u"x", 0, 1, 1), text.find_first_of(u"x", 0, 1));
    use(text.find_first_not_of(u"x", 0, 1), text.compare(0, 1, "x", 0, 1, 0), text.begins_with("x"));
    use(text.getline(stream), text.mbcs_str(), text.mbcs_length(), text.length(), text.data());
    use(text == "x", "x" == text, text != moved, text == object, object != text, text + "x");
    ov::pathname path("x");
    path = "y";
    path = text;
    path += "z";
    use(path == ov::pathname("x"), path != object, path.text(), path.mbcs_str());
    use(ov::join_path("a", "b", u'/'), ov::pair("a", "b") == ov::pair(text, moved));
    ov::vector row;
    row.push_back(object.clone());
    row.remove(0);
    row.resize(0);
    use(row.size(), row.items(), row[0], object.codable_name(), object.hash_code(), object == row);
    ov::keyval key("k = v");
    key = "k = w";
    use(key.getval("k = "), ov::get_token("a,b", 1), ov::build_server_rr("HQ"), ov::ktobject::get_cod_name());
    int count = 0;
    use(ov::get_count("count = 3", &count));
}

void call_files(ov::ustring & text, ov::vector & row)
{
    ov::kt_file file(ov::pathname("x")), below(ov::ustring("x"));
    char buffer[8];
    long position = 0;
    int count = 0;
    use(file.open("r"), file.error(), file.seek(0, SEEK_SET), file.get_line(text));
    use(file.write("x"), file.write(text), file.write(buffer, 8), file.get_pos(&position));
    use(file.read(buffer, 1, 8), file.read(buffer, 8), file.copy_to("y"), file.removef(), file.file_size());
    file.set_file_name("n");
    use(file.file_name(), file.find_section("[x]"), file.seek_section("[x]", &count, 1));
    use(file.get_keyval(text, text), file.load_top(text, row), file.load_offsets(row), file.close());
    ov::sof_entry section("[x]", ov::sof_entry::target_sect);
    ov::top_entry domain("HQ", "path", row);
    use(section.clone(), domain.clone(), ov::print_topv(row, "x"), ov::sort_on_dep_len(&row, &row));
    ov::scan_cfg cfg("x");
    use(cfg.load(), cfg.set_server(1), ov::scan_cfg::recover("x"), cfg.error_text(), cfg.cfg_file());
    use(cfg.server_count(), cfg.cfg_stream(), cfg.target_name(), cfg.target_protocol(), cfg.generic_lines());
    cfg.show();
    cfg.show_all();
    cfg.fill_vector(row);
    ov::heapdump(nullptr);
    use(ov::kt_chkfile("x"), ov::usprintf(text, "%s %d", "x", 1), ov::usprintf(text, "%s", nullptr));
}

void call_commands(ov::input_parms & ip, int argc, char ** argv)
{
    use(ip.get_ips(argc, argv), ip.validate(ov::ip_profiles[0].mandatory, ov::ip_profiles[0].allowed));
    use(ip.missing(ov::ip_profiles[0].mandatory), ov::input_parms::usage(ov::ip_profiles[0], "tool"));
    ip.set_ip("-log");
    ip.set_ip_log_level("0");
    ip.set_ip_obj_type("x");
    ip.set_ip_top_root("x");
    use(ip.ip("-log"), ip.ip_log_level(), ov::input_parms::ip_op_sys() = "UVX");
    ov::initializer();
    ov::setloglevel(ip);
    ov::brod_base brod(ov::sset_out_file("a"), ov::sset_out_file("b"));
    brod.set_output_file("a");
    brod.set_final_output_file("b");
    brod.build_final_out_file("c");
    brod.set_brod_cmd("lstg", 1);
    brod.set_brod_cmd_rc(0);
    use(brod.exec_brod_cmd(1, 1), brod.brod_cmd(), brod.brod_cmd_rc(), brod.out_file(), brod.output_file());
    ov::brod_base_ls object("x");
    ov::brod_base_lscm instance("x", "y");
    object.set_local_name();
    ov::resolve_tokens(object.get_global_name());
    use(object.get_local_name(), instance.final_output_file(), ov::brod_base::canned_file("lstg"));
}

template <class Record>
void call_record(Record record)
{
    record.set_fip("USER=");
    use(record.set("USER=x"), record.validate(), record.fip("USER="));
}

void call_input_files(ov::ustring & text)
{
    ov::file_input_parms input;
    use(input.get_fips("f", 1, "USER=", 3), input.index(), input.input_info(0), input.arSections());
    use(input.error_line(), input.error_text(), input.error_section());
    ov::auth_profile_info profile;
    profile.set_usSend("YES");
    profile.toString(text);
    ov::user_info user;
    user.set_usUserName(text);
    call_record(ov::VXA_inst_info());
    call_record(profile);
    call_record(user);
}

short call_channels(short code, unsigned count)
{
    const ov::call_trace trace("call");
    trace.call("%s", "x");
    trace.info("%d %hd %u %x %c %ld", 1, code, count, count, 'c', 1L);
    trace.warning("%s %s", ov::ustring("x"), ov::pathname("x"));
    trace.error("none");
    trace.fatal("%5.5s", "x");
    trace.quit();
    trace.leave();
    use(trace.leave(code), trace.leave(1), trace.leave(count));
    ov::log_message(ov::messages::MSG0020, "x");
    ov::console_message("%s", "x");
    ov::work_area & area = ov::log::wa();
    ov::trace::set_stream(area, new ov::capture_stream);
    ov::trace::set_stream(area, new ov::stdio_trace_stream("x"));
    ov::trace::set_level(area, ov::trace::level(area));
    ov::trace::set_max_size(area, ov::trace::max_size(area));
    ov::trace::write_header(area, " [I] ", "x");
    ov::trace::write_text(area, ov::trace::internal_write_text("%d", 1));
    use(ov::trace::last_system_error_to_string(area), ov::trace::system_error_to_string(area, 2));
    use(ov::environment::get_kt_inst_path(), ov::environment::log_level(), ov::environment::kt_bin_path());
    return trace.fail(code);
}

enum class color { red };

void call_newer_forms(const std::string & bytes, std::string_view view, ov::vector & row, std::ostream & out)
{
    ov::ustring text(bytes), wide(u"x");
    text = view;
    text.assign("x\0y", 3);
    ov::pathname path(text), from_bytes(bytes);
    path = bytes;
    const std::filesystem::path native = path;
    path = ov::pathname(native);
    out << text + wide << path << std::string(text) << text.mbcs_view();
    use(text < wide, std::map<ov::pathname, int>(), std::unordered_map<ov::ustring, int>());
    use(path == text, text == path, path == "x", "x" != path, path != bytes, path < from_bytes);
    ov::keyval key;
    key = text;
    for (const ov::top_entry & domain : ov::items<ov::top_entry>(row))
        use(domain);
    for (ov::codable * item : row)
        use(item);
    ov::kt_file file(path), other(std::move(file));
    const ov::close_at_end closing(other);
    file = std::move(other);
    file.set_file_name(path);
    use(file.is_open(), file.at_end(), file.load_top(text, row, row),
        ov::orphan_entry(1, "STH", "HQ").clone());
    ov::scan_cfg by_path(path), by_bytes(bytes);
    use(ov::file_input_parms().get_fips(text, 1, "USER=", 3), ov::kt_chkfile(native));
    use(ov::usprintf(text, "%s %s %d %s", bytes, view, color::red, NULL));
    ov::log_message("%s %s %d", bytes, view, color::red);
    use(ov::call_trace("x").leave(1L), ov::explain(259), ov::explain("MSG0107"), ov::version());
}

} // namespace all_calls
