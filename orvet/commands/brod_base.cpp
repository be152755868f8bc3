#include "orvet/commands/brod_base.h"

#include <cerrno>
#include <cstdio>
#include <utility>

#include "orvet/cmdline/input_parms.h"
#include "orvet/commands/lent_path_internal.h"
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

/// What the commands that tools give to Brodan begin with, and what answers them in dummy mode.
struct canned_answer {
    const char * beginning;
    const char * file;
    bool named; // the name behind the beginning is part of the file's
};

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

/// Makes `path` that of `name` in the `migr` directory; where memory is short it stays as it was.
void set_migr_path(pathname & path, const ustring & name)
{
    memory_watch watch;
    pathname made(environment::brod_inst_path());
    made += "migr";
    made += name;
    if (!watch.failed())
        path = std::move(made);
}

/// What `sset_out_file` gives when there is no memory for an object of its own: one for all, empty, which
/// stands there anew whenever a holder deletes it.
class no_path final : public pathname {
public:
    static pathname & get()
    {
        alignas(no_path) static char room[sizeof(no_path)];
        static pathname & only = *::new (room) no_path;
        return only;
    }
    static void operator delete(void * room) { ::new (room) no_path; }
};

bool has_zero(const ustring & text)
{
    return text.find(u'\0', 0, 0) != ustring::npos;
}

/// Takes a "dummy " off the front of `line` and makes of the rest the line that prints the canned file. False
/// for a line that asks for none, and where a zero byte would cut the new line short: no shell takes one, so
/// the old line fails by itself.
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

} // namespace

pathname & sset_out_file(const char * name)
{
    const call_trace trace("sset_out_file");
    pathname path;
    const ustring text(name);
    if (text.length() != 0)
        set_migr_path(path, text);
    pathname * const made = make<pathname>(path);
    return made ? *made : no_path::get();
}

lent_path::lent_path(const char * name) : path_(sset_out_file(name)), stays_(path_.text().length() == 0)
{
}

lent_path::~lent_path()
{
    if (stays_)
        delete &path_;
}

brod_base::brod_base(pathname & output, pathname & final_output)
    : out_file_(output), final_out_file_(final_output)
{
    output_file_ = out_file_.file_name();
    final_output_file_ = final_out_file_.file_name();
    complete_ = output_file_.text() == output.text();
    const bool takes_output = output.text().length() != 0;
    const bool takes_final = final_output.text().length() != 0 && &final_output != &output;
    if (takes_output)
        delete &output;
    if (takes_final)
        delete &final_output;
}

brod_base::~brod_base()
{
    const call_trace trace("brod_base::~brod_base");
    out_file_.close();
    final_out_file_.close();
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
    if (!watch.failed())
        brod_cmd_ = std::move(command);
    command_complete_ = !watch.failed();
    trace.info("Command before conversion is <%s>", brod_cmd_);
    os_brod_cmd(brod_cmd_);
    trace.info("Command after conversion is <%s>", brod_cmd_);
    trace.leave();
}

/// Every system takes a command as it is.
void brod_base::os_brod_cmd(ustring &)
{
    const call_trace trace("brod_base::os_brod_cmd");
}

ustring brod_base::redirected(int to_output, int to_errors) const
{
    ustring line(brod_cmd_);
    if (to_output != 0)
        line.append(">").append(output_file_.text());
    if (to_errors != 0) {
        pathname & errors = sset_out_file(error_file);
        line.append(" 2>>").append(errors.text());
        delete &errors; // NOLINT(clang-analyzer-cplusplus.NewDelete): see `no_path`
    }
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
    if (make_canned(line, output_file_)) {
        const char * const old_line = asked.mbcs_str();
        const char * const new_line = line.mbcs_str();
        if (!watch.failed())
            std::printf("Dummy call: <%s> becomes <%s> \n", old_line, new_line);
    }

    const bool runs = complete_ && command_complete_ && !watch.failed();
    std::fflush(stdout); // ahead of what the command prints there
    errno = runs ? 0 : ENOMEM;
    const int result = runs ? platform::run_command(line) : -1;
    const int error = errno;
    if (result != 0) {
        trace.error("The return code was %d errno was %d", result, error);
        log_message(messages::MSG0016, line, result, error);
        return trace.fail(result);
    }
    return trace.leave(result);
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
