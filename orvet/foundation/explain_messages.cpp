// The causes and remedies of the messages: what docs/messages.md shows.

#include <iterator>

#include "orvet/foundation/explain.h"
#include "orvet/foundation/messages.h"

namespace orvet {

namespace {

// clang-format off

// In the order of messages.h.
constexpr explanation rows[] = {

// Environment and command line.
{messages::MSGI0001, "environment::get_kt_inst_path",
 "KTXPATH is not set. Work goes on with an empty path: trace and log are in the current directory.",
 "Set KTXPATH to the directory that holds trace and log, and start the tool again."},
{messages::MSGI0002, "environment::get_brod_inst_path",
 "The variable brdcfg is not set; nothing else is checked. Work goes on with an empty path: the files of commands are "
 "in \"migr\" below the current directory.",
 "Set brdcfg to Brodan's installation directory, and start the tool again."},
{messages::MSGI0003, "environment::get_remove_temp_files",
 "ktxrmtf is neither \"yes\" nor \"no\"; case does not matter, blanks do. Work goes on with \"no\": temporary files are "
 "kept.",
 "Correct the variable."},
{messages::MSGI0004, "input_parms::get_ips",
 "A word where an option was expected begins with the name of none; it is shown in lower case. Reading stopped with 1; "
 "the options before the word are set.",
 "Correct the command line. A value with blanks needs quotes."},
{messages::MSGI0005, "input_parms::get_ips",
 "The option takes a value and is the last word, or memory ran out. Reading stopped with 15.",
 "Add the value."},
{messages::MSGI0006_osys, "input_parms::set_ip_op_sys, input_parms::get_ips",
 "The value of -osys is not one of its words. get_ips stopped with 16, and the operating system is empty, no longer "
 "UVX.",
 "Give UVX or WINDOWS_NT, in capitals."},
{messages::MSGI0006_tobj, "input_parms::set_ip_obj_type, input_parms::get_ips",
 "The value of -tobj is not one of its words. get_ips stopped with 17, and the object type is empty.",
 "Give PROC, PLAN or SOFTW, in capitals."},
{messages::MSGI0007, "input_parms::validate",
 "An option that this tool needs is missing. It is the first one; others may be missing too. validate returned 0.",
 "Add the option to the command line."},
{messages::MSGI0008, "input_parms::validate",
 "This tool has no use for the option. The message comes once for each such option. Work goes on; the value is kept.",
 "Leave the option out."},
{messages::MSGI0009, "environment::get_kt_work_path",
 "KTXWORK is not set. Work goes on with an empty path: the tools work in the current directory.",
 "Set KTXWORK to the tools' working directory, and start the tool again."},
{messages::MSGI0010, "input_parms::set_ip_ret_val",
 "The value of -ret is not one of its words. Work goes on with err.",
 "Give ok or err, in lower case."},
{messages::MSGI0011, "input_parms::set_ip_type",
 "The value of -type is not one of its words. Work goes on with \"err\", which is not one of them: the tool sees it "
 "there.",
 "Give one of the words of the message, or UVXINSTP, in capitals."},

// Files and commands.
{messages::MSG0001, "kt_file::read, kt_file::write, kt_file::get_pos, kt_file::seek, kt_file::get_line",
 "The tool used a file that it had not opened, often after an open that failed. Returned 255; get_line and the read of "
 "two arguments return 0.",
 "Look for MSG0017 before it and act on that; if there is none, report the tool."},
{messages::MSG0015, "brod_base::exec_brod_cmd",
 "A command is about to run; it is shown with its redirections. In dummy mode a canned file answers it.",
 "Nothing."},
{messages::MSG0016, "brod_base::exec_brod_cmd",
 "The command ended with that value, which exec_brod_cmd returned: -1, the shell could not be started; on Linux 127, "
 "the command was not found, and 128 + n, signal n ended it. The output file may hold a part.",
 "Read \"broderr.out\" in the \"migr\" directory, run the command by hand, and check that \"migr\" exists. In dummy mode "
 "the command prints the canned file: check that the file exists."},
{messages::MSG0016, "kt_file::copy_to",
 "The file could not be renamed to the target that is shown as the command. Returned 6: the file is unchanged, and a "
 "former target is gone, unless it was the file itself.",
 "Check that both names are on one file system and differ, that the target's directory exists, and that no program has "
 "the file open."},
{messages::MSG0017, "kt_file::open",
 "The system could not open the file, for the reason that the error number tells. Returned 250.",
 "For error number 2 correct the name or path; for 13 the permissions; 21 is a directory: name a file in it."},
{messages::MSG0018, "kt_file::write",
 "The disk is full, or the file was opened for reading. Returned 251; the file holds the part that was written. A full "
 "disk can also show later, by MSG0019 or MSG0020.",
 "Make room on the disk, and run the tool again."},
{messages::MSG0019, "kt_file::seek, kt_file::open",
 "The position can't be set: the name is that of a pipe or a terminal, the offset is before the start, or there is no "
 "room for what was written before. Origin 0 is the start of the file, 1 the current position, 2 the end. Returned 253; "
 "after open the file is still open.",
 "Name a regular file, and make room on the disk."},
{messages::MSG0020, "kt_file::close",
 "What was written last may not have reached the disk. Returned 252; the file counts as open.",
 "Make room on the disk, and run the tool again."},
{messages::MSG0037, "kt_file::read",
 "The file is shorter than the tool expected, or the disk failed. The numbers count items, which are bytes if an item is "
 "one byte. Returned 254; what was read is in the tool's buffer.",
 "Check that the file is complete."},
{messages::MSG0045, "kt_file::removef",
 "The system refused to remove the file. A file that is already gone is not an error. Returned 257; the clean-up of a "
 "command ignores it.",
 "Remove the file by hand if it is in the way. For error number 13 close the program that has it open, or correct the "
 "permissions of its directory."},

// Scan result files.
{messages::MSG0107, "kt_file::load_top",
 "The domain, counted from 0 in the file, depends on a name that is not in the topology, or on a domain that was itself "
 "left out before. Names are compared exactly, case included. Work goes on without the domain and its targets.",
 "Run the discovery again from the missing domain, or correct the name in the topology line."},
{messages::MSG0108, "kt_file::load_top",
 "The domain's mode is not \"push\", in lower case. Work goes on with the domain.",
 "If its targets are not complete, start a discovery there."},
{messages::MSG0111, "kt_file::load_top",
 "The topology line, counted from 0 after the count line, has no \" = \", or the file could not be read to there. "
 "Returned 258.",
 "Correct the line, or the count before it; if the line is right, check the disk."},
{messages::MSG0112, "kt_file::load_top",
 "The line after the head of the topology is not a count line, is missing, can't be read, or counts more than 32767 "
 "domains. Returned 259; nothing was loaded.",
 "Correct the line: \"count = \" and the number of topology lines. Split a larger discovery."},
{messages::MSG0113, "kt_file::load_offsets",
 "A domain's target section is missing, is not in the order of the topology lines, or has no count line after its head. "
 "Returned 260, 258 for the count line, or the code of get_pos.",
 "Correct the file: one section for each domain, in the order of the topology lines."},
{messages::MSG0114, "kt_file::load_offsets",
 "A domain's target section was found; the message comes once for each domain, with the head of the section.",
 "Nothing."},

// Input files.
{messages::MSG0134, "VXA_inst_info::set, auth_profile_info::set, user_info::set",
 "A line of the input file begins with no keyword of its kind of file. An invisible byte order mark at the start of the "
 "file or a Ctrl-Z at its end makes such a line, and for profiles and users a blank before the \"=\". The reader stopped "
 "with 100; the records before the line are kept.",
 "Correct the line; save the file without byte order mark and Ctrl-Z."},
{messages::MSG0135_started, "file_input_parms::get_fips",
 "The input file is open, and reading begins.",
 "Nothing. If no second MSG0135 follows, reading failed: look at the messages between."},
{messages::MSG0135_completed, "file_input_parms::get_fips",
 "All sections were read and are valid.",
 "Nothing."},
{messages::MSG0136, "VXA_inst_info::set",
 "The operating system of an agent is none of the known names. The reader stopped with 101.",
 "Give a value that begins with WINDOWS_NT or WIN95, in capitals."},
{messages::MSG0137, "VXA_inst_info::validate, user_info::validate",
 "A section of the input file lacks the keyword; others may be missing too. The reader stopped with 102.",
 "Add the line to the section."},
{messages::MSG0138, "VXA_inst_info::validate, auth_profile_info::validate, user_info::validate",
 "The tool itself has marked a keyword of another kind of file; a file can't cause this. Work goes on.",
 "Report the tool."},
{messages::MSG0139, "file_input_parms::get_fips",
 "A section is not valid, or the file could not be read to its end. The reader stopped with 102; the records before the "
 "section are kept.",
 "Act on the message before it. If there is none: an agent needs an OPERATING_SYSTEM that begins with WINDOWS_NT or "
 "WIN95; else check the disk."},
};

// clang-format on

} // namespace

explanation_range message_explanations() noexcept
{
    return {std::begin(rows), std::end(rows)};
}

} // namespace orvet
