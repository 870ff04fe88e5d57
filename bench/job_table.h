/// The command line of a program that does one job of several: JOB FILE N.
#pragma once

#include <charconv>
#include <cstdio>
#include <cstring>
#include <span>
#include <string_view>

namespace kvocaeio::bench {

/// `run` gets a file's path and, for a job that writes it, the number of elements to write.
template <class Result>
struct Job {
    std::string_view name;
    Result (*run)(const char* path, int size);
};

/// The job that the command line asks for, or null, after a word on standard error.
template <class Result>
const Job<Result>* chooseJob(int argc, char** argv, std::span<const Job<Result>> jobs) {
    if (argc == 4)
        for (const Job<Result>& job : jobs)
            if (job.name == argv[1])
                return &job;
    std::fprintf(stderr,
                 "usage: %s JOB FILE N\n"
                 "N elements, if FILE is one to be written; JOB is one of:\n",
                 argv[0]);
    for (const Job<Result>& job : jobs)
        std::fprintf(stderr, "  %s\n", job.name.data());
    return nullptr;
}

template <class Result>
Result runJob(const Job<Result>& job, char** argv) {
    int size = 0;
    std::from_chars(argv[3], argv[3] + std::strlen(argv[3]), size);
    return job.run(argv[2], size);
}

}  // namespace kvocaeio::bench
