// Declarations for the syntax check of the macOS build off a Mac: Darwin's process spawning, in
// place of this machine's, as the system declares it: the setting objects are opaque pointers,
// the flags have Darwin's values, and the non-portable file actions carry the system version
// they arrived in.
#pragma once

#include <signal.h>
#include <sys/types.h>

#include <os/availability.h>

typedef void* posix_spawnattr_t;
typedef void* posix_spawn_file_actions_t;

#define POSIX_SPAWN_RESETIDS 0x0001
#define POSIX_SPAWN_SETPGROUP 0x0002
#define POSIX_SPAWN_SETSIGDEF 0x0004
#define POSIX_SPAWN_SETSIGMASK 0x0008
#define POSIX_SPAWN_SETEXEC 0x0040
#define POSIX_SPAWN_START_SUSPENDED 0x0080
#define POSIX_SPAWN_CLOEXEC_DEFAULT 0x4000

#ifdef __cplusplus
extern "C" {
#endif

int posix_spawn(pid_t* __restrict pid, const char* __restrict path, const posix_spawn_file_actions_t* fileActions,
                const posix_spawnattr_t* __restrict attributes, char* const argv[],
                char* const envp[]);
int posix_spawnp(pid_t* __restrict pid, const char* __restrict file, const posix_spawn_file_actions_t* fileActions,
                 const posix_spawnattr_t* __restrict attributes, char* const argv[],
                 char* const envp[]);

int posix_spawn_file_actions_init(posix_spawn_file_actions_t* fileActions);
int posix_spawn_file_actions_destroy(posix_spawn_file_actions_t* fileActions);
int posix_spawn_file_actions_addclose(posix_spawn_file_actions_t* fileActions, int descriptor);
int posix_spawn_file_actions_adddup2(posix_spawn_file_actions_t* fileActions, int descriptor, int newDescriptor);
int posix_spawn_file_actions_addopen(posix_spawn_file_actions_t* __restrict fileActions, int descriptor,
                                     const char* __restrict path, int flags, mode_t mode);
int posix_spawn_file_actions_addinherit_np(posix_spawn_file_actions_t* fileActions, int descriptor)
    API_AVAILABLE(macos(10.7), ios(4.3));
int posix_spawn_file_actions_addchdir_np(posix_spawn_file_actions_t* fileActions, const char* __restrict path)
    API_AVAILABLE(macos(10.15));
int posix_spawn_file_actions_addfchdir_np(posix_spawn_file_actions_t* fileActions, int descriptor)
    API_AVAILABLE(macos(10.15));

int posix_spawnattr_init(posix_spawnattr_t* attributes);
int posix_spawnattr_destroy(posix_spawnattr_t* attributes);
int posix_spawnattr_getflags(const posix_spawnattr_t* __restrict attributes, short* __restrict flags);
int posix_spawnattr_setflags(posix_spawnattr_t* attributes, short flags);
int posix_spawnattr_getpgroup(const posix_spawnattr_t* __restrict attributes, pid_t* __restrict group);
int posix_spawnattr_setpgroup(posix_spawnattr_t* attributes, pid_t group);
int posix_spawnattr_getsigdefault(const posix_spawnattr_t* __restrict attributes, sigset_t* __restrict signals);
int posix_spawnattr_setsigdefault(posix_spawnattr_t* __restrict attributes, const sigset_t* __restrict signals);
int posix_spawnattr_getsigmask(const posix_spawnattr_t* __restrict attributes, sigset_t* __restrict signals);
int posix_spawnattr_setsigmask(posix_spawnattr_t* __restrict attributes, const sigset_t* __restrict signals);

#ifdef __cplusplus
}
#endif
