// Prints the part of docs/messages.md or docs/return-codes.md that is made from the library's own tables:
//   print_tables messages|codes
// `./dev docs-tables` puts both into their pages.

#include <cstdio>
#include <cstring>
#include <string>

#include <orvet/foundation/explain.h>

namespace {

/// "kt_file::open, kt_file::seek" with each name as code.
std::string as_code(std::string names)
{
    for (std::size_t at = 0; (at = names.find(", ", at)) != std::string::npos; at += 4)
        names.replace(at, 2, "`, `");
    return "`" + names + "`";
}

/// A conversion's tab as C++ writes it, so that it can be seen.
std::string visible(std::string text)
{
    for (std::size_t at = 0; (at = text.find('\t', at)) != std::string::npos; at += 2)
        text.replace(at, 1, "\\t");
    return text;
}

void print_messages()
{
    std::string number;
    std::string text;
    for (const orvet::explanation & row : orvet::message_explanations()) {
        const std::string subject = row.subject;
        if (subject.substr(0, subject.find(' ')) != number) {
            number = subject.substr(0, subject.find(' '));
            std::printf("\n### %s\n", number.c_str());
        }
        if (subject != text) {
            text = subject;
            std::printf("\n    %s\n", visible(text).c_str());
        }
        std::printf("\n%s: %s **Do:** %s\n", as_code(row.operation).c_str(), row.cause, row.remedy);
    }
}

void print_codes()
{
    std::printf("\n| Code | Name | Of | Cause | Do |\n|---|---|---|---|---|\n");
    for (const orvet::explanation & row : orvet::code_explanations()) {
        const std::string subject = row.subject;
        const std::size_t blank = subject.find(' ');
        const std::string name = blank == std::string::npos ? "" : "`" + subject.substr(blank + 1) + "`";
        std::printf("| %s | %s | %s | %s | %s |\n", subject.substr(0, blank).c_str(), name.c_str(),
                    std::strchr(row.operation, ' ') && !std::strchr(row.operation, ',')
                        ? row.operation
                        : as_code(row.operation).c_str(),
                    row.cause, row.remedy);
    }
}

} // namespace

int main(int argc, char ** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "messages") == 0)
        print_messages();
    else if (argc == 2 && std::strcmp(argv[1], "codes") == 0)
        print_codes();
    else
        return 2;
    return 0;
}
