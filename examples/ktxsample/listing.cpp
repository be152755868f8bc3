#include "ktxsample.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

/// Runs the command and shows what it answers; false when there is no answer. Leaves the file closed.
bool show_answer(orvet::brod_base & brod)
{
    const orvet::close_at_end closing(brod.out_file());
    const int rc = brod.exec_brod_cmd(1, 1);
    if (rc != 0 || brod.out_file().open("r") != 0) {
        std::printf("  no answer to \"%s\": exit value %d\n", brod.brod_cmd().mbcs_str(), rc);
        return false;
    }
    for (orvet::ustring line; brod.out_file().get_line(line);)
        std::printf("  %s\n", line.mbcs_str());
    return true;
}

/// Gives the answer its final name; the temporary file is gone then.
bool keep_answer(orvet::brod_base & brod)
{
    const bool kept = brod.out_file().copy_to(brod.final_output_file()) == 0;
    std::printf(kept ? "kept as %s\n" : "could not be kept as %s\n", brod.final_output_file().mbcs_str());
    return kept;
}

bool list_targets()
{
    std::printf("Targets:\n");
    orvet::brod_base targets(orvet::sset_out_file("lstgtmp.out"), orvet::sset_out_file("targets.out"));
    targets.set_brod_cmd("brod lstg -l", 0);
    return show_answer(targets) && keep_answer(targets);
}

bool find_object(const orvet::ustring & name)
{
    std::printf("Object %s:\n", name.mbcs_str());
    orvet::ustring word; // the name is part of a shell's command
    if (!orvet::quote_word(name, word)) {
        std::printf("can't be passed to a command\n");
        return false;
    }
    orvet::brod_base_ls object(word);
    if (!show_answer(object))
        return false;
    object.set_local_name();
    if (object.out_file().close() != 0)
        return false;
    if (object.get_local_name().text().length() == 0) {
        std::printf("has no local name\n");
        return false;
    }
    std::printf("lies in %s\n", object.get_local_name().mbcs_str());
    return keep_answer(object);
}

/// One line about the answers that were recorded, and those that were not.
void show_recorded(const char * directory)
{
    const orvet::vector & answers = orvet::brod_base::recorded_answers();
    std::string recorded;
    std::string others;
    for (unsigned i = 0; i < answers.size(); ++i) {
        const auto & answer = static_cast<const orvet::recorded_answer &>(*answers[i]);
        const std::string command = std::string("\"") + answer.command.mbcs_str() + "\"";
        if (answer.is_recorded())
            recorded += (recorded.empty() ? "" : ", ") + command + " as " +
                        orvet::brod_base::canned_file(answer.command).mbcs_str();
        else
            others += "; not " + command + ", " + answer.reason.mbcs_str();
    }
    std::printf("Recorded in %s: %s%s\n", directory, recorded.empty() ? "nothing" : recorded.c_str(),
                others.c_str());
}

} // namespace

int ask_brodan(const orvet::input_parms & ip)
{
    const char * const directory = std::getenv("KTXRECORD");
    if (directory)
        orvet::brod_base::record_answers(directory);
    const bool listed = list_targets();
    const bool found = !ip.ip("-obj") || find_object(ip.ip_obj_file_name().text());
    if (directory && *directory)
        show_recorded(directory);
    return listed && found ? 0 : 1;
}
