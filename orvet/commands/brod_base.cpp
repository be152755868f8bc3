#include "orvet/commands/brod_base.h"

#include <cerrno>
#include <cstdio>
#include <utility>

#include "orvet/cmdline/input_parms.h"
#include "orvet/commands/answer_recorder_internal.h"
#include "orvet/files/sections.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/environment.h"
#include "orvet/foundation/messages.h"
#include "orvet/foundation/platform/processes.h"
#include "orvet/utilities/usprintf.h"

namespace orvet {

namespace {

constexpr char error_file[] = "broderr.out";

/// A command of the tools, by what it begins with, and the file that answers it in dummy mode.
struct canned_answer {
    const char * beginning;
    const char * file;
    bool named; // the name after the beginning is part of the file's name
};

// In this order: the first that fits counts, and the last one fits all.
// clang-format off
constexpr canned_answer canned_answers[] = {
    {"brod lstg -l",                      "x_lstgl",   false},
    {"brod lstg \\* -l -b",               "x_lstglb",  false},
    {"cat /usr/lpp/brodan/db/routetab",   "x_lsroute", false},
    {"cat /usr/lpp/brodan/db/snadscon/",  "xc_",       true},
    {"brod lstg \\* -l -j ",              "xd_",       true},
    {"cat /usr/lpp/brodan/db/brod.cfg",   "x_cfg",     false},
    {"",                                  "x_invalid", false},
};
// clang-format on

/// Makes `path` that of `name` in the `migr` directory; unchanged if allocation fails.
void set_migr_path(pathname & path, const ustring & name)
{
    memory_watch watch;
    pathname made(environment::brod_inst_path());
    made += "migr";
    made += name;
    if (!watch.failed())
        path = std::move(made);
}

/// What `sset_out_file` returns if allocation fails: one path for all callers, which `delete` leaves alone.
class shared_path final : public pathname {
public:
    static void operator delete(shared_path *, std::destroying_delete_t) {}
};

bool has_zero(const ustring & text)
{
    return text.find(u'\0', 0, 0) != ustring::npos;
}

/// Removes "dummy " from the front of `line` and makes of the rest the line that prints the canned file.
/// False, with `line` unchanged, if it does not ask for one, and if a zero byte would cut the new line short:
/// the shell refuses the old line because of it.
bool make_canned(ustring & line, const pathname & output)
{
    keyval rest(line);
    if (rest.getval("dummy ") != 0 || has_zero(line) || has_zero(output.text()))
        return false;
    pathname canned;
    const unsigned blank = rest.find(u' ', 0, 0);
    if (blank != ustring::npos) {
        canned = ustring(rest, 0, blank);
        rest.remove(0, blank + 1);
    }
    canned += brod_base::canned_file(rest);
    usprintf(line, "%s %s > %s", platform::print_command, canned, output);
    return true;
}

void print_dummy_call(const ustring & asked, const ustring & line)
{
    memory_watch watch;
    const char * const old_line = asked.mbcs_str();
    const char * const new_line = line.mbcs_str();
    if (!watch.failed())
        std::printf("Dummy call: <%s> becomes <%s> \n", old_line, new_line);
}

} // namespace

/// Writes no exit line: traces of this function have never had one.
pathname out_file_path(const char * name)
{
    const call_trace trace("sset_out_file");
    pathname path;
    const ustring text(name);
    if (text.length() != 0)
        set_migr_path(path, text);
    return path;
}

pathname & sset_out_file(const char * name)
{
    static lasting<shared_path> shared;
    if (pathname * const made = make<pathname>(out_file_path(name)))
        return *made;
    shared.value.pathname::operator=(pathname()); // a caller may have changed it
    return shared.value;
}

brod_base::brod_base(pathname && output, pathname && final_output)
    : out_file_(std::as_const(output)), final_out_file_(std::as_const(final_output))
{
    name_files(output);
}

brod_base::brod_base(pathname & output, pathname & final_output)
    : out_file_(output), final_out_file_(final_output)
{
    name_files(output);
    const bool takes_output = output.text().length() != 0;
    const bool takes_final = final_output.text().length() != 0 && &final_output != &output;
    if (takes_output)
        delete &output;
    if (takes_final)
        delete &final_output;
}

void brod_base::name_files(const pathname & output)
{
    output_file_ = out_file_.file_name();
    final_output_file_ = final_out_file_.file_name();
    complete_ = output_file_.text() == output.text();
}

brod_base::~brod_base()
{
    const call_trace trace("brod_base::~brod_base");
    static_cast<void>(out_file_.close());
    static_cast<void>(final_out_file_.close());
    if (environment::remove_temp_files() == "yes") {
        trace.error("Remove temp files");
        out_file_.removef();
    }
    trace.leave();
}

void brod_base::set_output_file(const ustring & name)
{
    const call_trace trace("brod_base::set_output_file");
    set_migr_path(output_file_, name);
    trace.info("The path for brod commands output is %s", output_file_);
    trace.leave();
}

void brod_base::set_final_output_file(const ustring & name)
{
    const call_trace trace("brod_base::set_final_output_file");
    set_migr_path(final_output_file_, name);
    trace.info("The final path for brod commands output is %s", final_output_file_);
    trace.leave();
}

void brod_base::build_final_out_file(const ustring & extension)
{
    const call_trace trace("brod_base::build_final_out_file");
    memory_watch watch;
    ustring name = final_out_file_.file_name().text();
    const unsigned dot = name.find(u'.', 0, 0);
    if (dot != 0) {
        name.remove(dot == ustring::npos ? 0 : dot + 1).append(extension);
        trace.info("usFile  is <%s>", name);
    }
    if (!watch.failed())
        final_out_file_.set_file_name(std::move(name));
    trace.info("The final path for brod commands output is %s", final_out_file_.file_name());
    trace.leave();
}

void brod_base::set_brod_cmd(const ustring & cmd, int whole)
{
    const call_trace trace("brod_base::set_brod_cmd");
    memory_watch watch;
    ustring command;
    if (whole == 0)
        command.append(input_parms::ip_base_cmd()).append(" ");
    command.append(cmd);
    ustring without_base(cmd);
    command_complete_ = !watch.failed();
    if (command_complete_) {
        brod_cmd_ = std::move(command);
        tool_cmd_ = std::move(without_base);
    }
    trace.info("Command before conversion is <%s>", brod_cmd_);
    os_brod_cmd(brod_cmd_);
    trace.info("Command after conversion is <%s>", brod_cmd_);
    trace.leave();
}

/// Every system accepts a command unchanged. Writes no exit line, although it is called between two lines of
/// `set_brod_cmd`: traces of this function have never had one.
void brod_base::os_brod_cmd(ustring &)
{
    const call_trace trace("brod_base::os_brod_cmd");
}

ustring brod_base::redirected(int to_output, int to_errors) const
{
    ustring line(brod_cmd_);
    if (to_output != 0)
        line.append(">").append(output_file_.text());
    if (to_errors != 0)
        line.append(" 2>>").append(out_file_path(error_file).text());
    return line;
}

int brod_base::exec_brod_cmd(int to_output, int to_errors)
{
    const call_trace trace("brod_base::exec_brod_cmd");
    memory_watch watch;
    ustring line = redirected(to_output, to_errors);
    trace.info("Submit the command -->%s<--", line);
    log_message(messages::MSG0015, line);
    const ustring asked(line);
    const bool canned = make_canned(line, output_file_);
    if (canned)
        print_dummy_call(asked, line);

    const bool runs = complete_ && command_complete_ && !watch.failed();
    std::fflush(stdout); // before the command prints there
    errno = runs ? 0 : ENOMEM;
    const int result = runs ? platform::run_command(line) : -1;
    const int error = errno;
    if (runs && !canned)
        answer_recorder::get().add(tool_cmd_, result, to_output != 0, output_file_);
    if (result != 0) {
        trace.error("The return code was %d errno was %d", result, error);
        log_message(messages::MSG0016, line, result, error);
        return trace.fail(result);
    }
    return trace.leave(result);
}

void brod_base::record_answers(const pathname & directory)
{
    answer_recorder::get().record_to(directory);
}

const vector & brod_base::recorded_answers()
{
    return answer_recorder::get().answers();
}

ustring brod_base::canned_file(const ustring & command)
{
    memory_watch watch;
    keyval rest(command);
    const canned_answer * answer = canned_answers;
    while (rest.getval(answer->beginning) != 0)
        ++answer;
    ustring file(answer->file);
    if (answer->named) {
        const unsigned end = rest.find(u'>', 0, 0);
        file.insert(file.length(), rest, 0, end);
    }
    return watch.failed() ? ustring() : file;
}

} // namespace orvet
