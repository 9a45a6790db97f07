// Loaded before a program (LD_PRELOAD), stops it at a system call of its choice that concerns one folder: FAULT_FOLDER
// names the folder, FAULT_AT the call's number from 1, FAULT_CODE the error it gives (an errno), or 0 to kill the
// program in its place. Each such call's name is appended to FAULT_LOG, a line each.

#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

enum { mostDescriptors = 1024 };

static _Bool watched[mostDescriptors];
static int calls;

static _Bool isInFolder(const char* path) {
    const char* folder = getenv("FAULT_FOLDER");
    return folder && path && strncmp(path, folder, strlen(folder)) == 0;
}

static _Bool isWatched(int file) {
    return file >= 0 && file < mostDescriptors && watched[file];
}

/// Whether the call is the one to fail, with errno set.
static _Bool fails(const char* name) {
    const int code = errno;
    const char* log = getenv("FAULT_LOG");
    const char* at = getenv("FAULT_AT");
    const char* fault = getenv("FAULT_CODE");
    if (log) {
        FILE* (*openFile)(const char*, const char*) = dlsym(RTLD_NEXT, "fopen");
        FILE* file = openFile(log, "a");
        if (file) {
            fprintf(file, "%s\n", name);
            fclose(file);
        }
    }
    errno = code;
    if (++calls != (at ? atoi(at) : 0)) return 0;
    const int error = fault ? atoi(fault) : 0;
    if (error == 0) raise(SIGKILL);
    errno = error;
    return 1;
}

#define REAL(name, result, ...) \
    static result (*real)(__VA_ARGS__); \
    if (!real) real = (result(*)(__VA_ARGS__))dlsym(RTLD_NEXT, name)

static int noteOpened(const char* path, int file) {
    if (file >= 0 && file < mostDescriptors) watched[file] = isInFolder(path);
    return file;
}

int open(const char* path, int flags, ...) {
    REAL("open", int, const char*, int, ...);
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    if (isInFolder(path) && fails("open")) return -1;
    return noteOpened(path, real(path, flags, mode));
}

int open64(const char* path, int flags, ...) {
    REAL("open64", int, const char*, int, ...);
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    if (isInFolder(path) && fails("open")) return -1;
    return noteOpened(path, real(path, flags, mode));
}

ssize_t write(int file, const void* data, size_t size) {
    REAL("write", ssize_t, int, const void*, size_t);
    if (!isWatched(file)) return real(file, data, size);
    if (fails("write")) return -1;
    // In pieces, so that what is cut off in the middle is tried too.
    return real(file, data, size > 4096 ? size / 2 : size);
}

int close(int file) {
    REAL("close", int, int);
    const _Bool ours = isWatched(file);
    if (ours) watched[file] = 0;
    const _Bool failing = ours && fails("close");
    const int code = errno;
    const int result = real(file);
    if (!failing) return result;
    errno = code;
    return -1;
}

#define OF_DESCRIPTOR(name, ...) if (isWatched(file) && fails(name)) return -1; return real(__VA_ARGS__)
#define OF_PATH(name, ...) if (isInFolder(path) && fails(name)) return -1; return real(__VA_ARGS__)

int fsync(int file) {
    REAL("fsync", int, int);
    OF_DESCRIPTOR("fsync", file);
}
int fchmod(int file, mode_t mode) {
    REAL("fchmod", int, int, mode_t);
    OF_DESCRIPTOR("fchmod", file, mode);
}
int flock(int file, int operation) {
    REAL("flock", int, int, int);
    OF_DESCRIPTOR("flock", file, operation);
}
int fstat(int file, struct stat* status) {
    REAL("fstat", int, int, struct stat*);
    OF_DESCRIPTOR("fstat", file, status);
}
int stat(const char* path, struct stat* status) {
    REAL("stat", int, const char*, struct stat*);
    OF_PATH("stat", path, status);
}
int lstat(const char* path, struct stat* status) {
    REAL("lstat", int, const char*, struct stat*);
    OF_PATH("lstat", path, status);
}
int unlink(const char* path) {
    REAL("unlink", int, const char*);
    OF_PATH("unlink", path);
}
int rename(const char* path, const char* to) {
    REAL("rename", int, const char*, const char*);
    OF_PATH("rename", path, to);
}
ssize_t readlink(const char* path, char* target, size_t size) {
    REAL("readlink", ssize_t, const char*, char*, size_t);
    OF_PATH("readlink", path, target, size);
}
