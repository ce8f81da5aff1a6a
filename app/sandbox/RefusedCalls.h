#pragma once

#include <array>

#include <linux/fs.h>
#include <linux/ioprio.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/syscall.h>

// What the sandbox looks at and what it refuses, by the numbers of the system calls.
namespace refused {

// Programs know nothing of later calls than these, so that the C library does without them where they are missing.
// Each kernel adds some, and among them were further ways to change permissions, attributes and mounts.
inline constexpr int NewestCall = SYS_set_mempolicy_home_node;

struct FileCall
{
    int number;
    int path; // which argument it is
    const char *what;
    int target = 0; // of a move, which argument
};

inline constexpr std::array fileCalls = {
    FileCall{SYS_open, 0, "opening"},       FileCall{SYS_openat, 1, "opening"},
    FileCall{SYS_creat, 0, "making"},       FileCall{SYS_truncate, 0, "changing"},
    FileCall{SYS_mkdir, 0, "making"},       FileCall{SYS_mkdirat, 1, "making"},
    FileCall{SYS_symlink, 1, "making"},     FileCall{SYS_symlinkat, 2, "making"},
    FileCall{SYS_link, 1, "making"},        FileCall{SYS_linkat, 3, "making"},
    FileCall{SYS_unlink, 0, "removing"},    FileCall{SYS_unlinkat, 1, "removing"},
    FileCall{SYS_rmdir, 0, "removing"},     FileCall{SYS_rename, 0, "moving", 1},
    FileCall{SYS_renameat, 1, "moving", 3}, FileCall{SYS_renameat2, 1, "moving", 3},
};

struct Call
{
    int number;
    const char *what;
};

// The file rules do not know these.
inline constexpr std::array attributeCalls = {
    Call{SYS_chmod, "a change of permissions"},
    Call{SYS_fchmodat, "a change of permissions"},
    Call{SYS_chown, "a change of owner"},
    Call{SYS_lchown, "a change of owner"},
    Call{SYS_fchownat, "a change of owner"},
    Call{SYS_setxattr, "a change of attributes"},
    Call{SYS_lsetxattr, "a change of attributes"},
    Call{SYS_fsetxattr, "a change of attributes"},
    Call{SYS_removexattr, "a change of attributes"},
    Call{SYS_lremovexattr, "a change of attributes"},
    Call{SYS_fremovexattr, "a change of attributes"},
    Call{SYS_utimensat, "a change of file times"},
    Call{SYS_futimesat, "a change of file times"},
    Call{SYS_utime, "a change of file times"},
    Call{SYS_utimes, "a change of file times"},
};

inline constexpr std::array startCalls = {
    Call{SYS_execve, "the start of a process"}, Call{SYS_execveat, "the start of a process"},
    Call{SYS_fork, "the start of a process"},   Call{SYS_vfork, "the start of a process"},
    Call{SYS_clone, "the start of a process"},
};

// Of these: what a process turns into another program by.
inline constexpr std::array programCalls = {SYS_execve, SYS_execveat};

// To others than the caller, whose number is the first argument of most.
inline constexpr std::array signalCalls = {
    Call{SYS_kill, "a signal to another process"},
    Call{SYS_tgkill, "a signal to another process"},
    Call{SYS_rt_sigqueueinfo, "a signal to another process"},
    Call{SYS_rt_tgsigqueueinfo, "a signal to another process"},
};

inline constexpr std::array signalCallsToThreads = {
    Call{SYS_tkill, "a signal to another process"},
    Call{SYS_pidfd_send_signal, "a signal to another process"},
};

// All below fail without a word: libraries try them and go on, and no LISP function does.

inline constexpr std::array quietCalls = {
    // files that are open
    SYS_fchmod, SYS_fchown,
    // the network, and what else reaches beyond this process
    SYS_socket, SYS_io_uring_setup, SYS_io_uring_enter, SYS_io_uring_register, SYS_open_by_handle_at, SYS_mq_open,
    SYS_mq_unlink, SYS_shmget, SYS_shmat, SYS_shmctl, SYS_semget, SYS_semop, SYS_semtimedop, SYS_semctl, SYS_msgget,
    SYS_msgsnd, SYS_msgrcv, SYS_msgctl, SYS_add_key, SYS_request_key, SYS_keyctl, SYS_fanotify_init,
    // other processes
    SYS_ptrace, SYS_process_vm_readv, SYS_process_vm_writev, SYS_process_madvise, SYS_process_mrelease, SYS_pidfd_getfd,
    SYS_kcmp, SYS_migrate_pages, SYS_move_pages,
    // the system
    SYS_mount, SYS_umount2, SYS_pivot_root, SYS_move_mount, SYS_open_tree, SYS_fsopen, SYS_fsconfig, SYS_fsmount,
    SYS_fspick, SYS_mount_setattr, SYS_swapon, SYS_swapoff, SYS_quotactl, SYS_quotactl_fd, SYS_chroot, SYS_unshare,
    SYS_setns, SYS_sethostname, SYS_setdomainname, SYS_settimeofday, SYS_clock_settime, SYS_adjtimex, SYS_clock_adjtime,
    SYS_reboot, SYS_kexec_load, SYS_kexec_file_load, SYS_init_module, SYS_finit_module, SYS_delete_module, SYS_acct,
    SYS_syslog, SYS_vhangup, SYS_iopl, SYS_ioperm,
    // wide doors into the kernel
    SYS_bpf, SYS_perf_event_open, SYS_userfaultfd, SYS_modify_ldt, SYS_uselib};

// A call that may be made only with this value of an argument.
struct BoundCall
{
    int number;
    unsigned argument;
    unsigned allowed;
};

inline constexpr unsigned Caller = 0; // instead of the number of a process

inline constexpr std::array boundCalls = {
    BoundCall{SYS_prlimit64, 0, Caller},
    BoundCall{SYS_sched_setaffinity, 0, Caller},
    BoundCall{SYS_sched_setscheduler, 0, Caller},
    BoundCall{SYS_sched_setparam, 0, Caller},
    BoundCall{SYS_sched_setattr, 0, Caller},
    BoundCall{SYS_setpriority, 0, PRIO_PROCESS}, // and no group, nor all of the user
    BoundCall{SYS_setpriority, 1, Caller},
    BoundCall{SYS_ioprio_set, 0, IOPRIO_WHO_PROCESS},
    BoundCall{SYS_ioprio_set, 1, Caller},
};

// Of ioctl: what types into a terminal, and what changes the attributes of a file that is open for reading.
inline constexpr std::array quietRequests = {
    static_cast<unsigned>(TIOCSTI),           static_cast<unsigned>(TIOCLINUX),
    static_cast<unsigned>(FS_IOC_SETFLAGS),   static_cast<unsigned>(FS_IOC32_SETFLAGS),
    static_cast<unsigned>(FS_IOC_SETVERSION), static_cast<unsigned>(FS_IOC32_SETVERSION),
    static_cast<unsigned>(FS_IOC_FSSETXATTR)};

// Of clone: namespaces, in which a process would be its own administrator.
inline constexpr std::array quietCloneFlags = {CLONE_NEWNS,   CLONE_NEWCGROUP, CLONE_NEWUTS, CLONE_NEWIPC,
                                               CLONE_NEWUSER, CLONE_NEWPID,    CLONE_NEWNET};

} // namespace refused
