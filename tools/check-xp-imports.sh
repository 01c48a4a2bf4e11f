#!/usr/bin/env bash
# The 32-bit program file must load on Windows XP: it may import only from the
# system's classic DLLs, none of the functions Windows added after XP, and must
# declare a subsystem version XP accepts.
set -euo pipefail
exe=${1:?program file}
dump=$(i686-w64-mingw32-objdump -p "$exe")
status=0

allowed_dlls='^(KERNEL32|USER32|GDI32|ADVAPI32|SHELL32|OLE32|OLEAUT32|COMCTL32|COMDLG32|IMAGEHLP|VERSION|MSVCRT)\.DLL$'
while read -r dll; do
    [[ ${dll^^} =~ $allowed_dlls ]] || { echo "imports from $dll, which XP may not have"; status=1; }
done < <(sed -n 's/^\tDLL Name: //p' <<<"$dump")

after_xp='GetTickCount64|InitializeSRWLock|AcquireSRWLock|ReleaseSRWLock|TryAcquireSRWLock|'
after_xp+='InitializeConditionVariable|SleepConditionVariable|WakeConditionVariable|WakeAllConditionVariable|'
after_xp+='InitOnce|FlsAlloc|FlsFree|FlsGetValue|FlsSetValue|GetSystemTimePreciseAsFileTime|'
after_xp+='CreateSymbolicLink|GetFinalPathNameByHandle|CompareStringEx|LCMapStringEx|GetLocaleInfoEx|'
after_xp+='SetThreadErrorMode|GetThreadErrorMode|CancelIoEx|GetFileInformationByHandleEx|'
after_xp+='SetFileInformationByHandle|CreateEventEx|CreateMutexEx|CreateSemaphoreEx|'
after_xp+='InitializeCriticalSectionEx|QueryFullProcessImageName|GetErrorMode|TaskDialog|'
after_xp+='SetDllDirectory|SetDefaultDllDirectories'  # looked up at run time; XP before SP1 lacks the first
if hits=$(grep -E "^\s+[0-9a-f]+\s+[0-9]+\s+($after_xp)" <<<"$dump"); then
    echo "imports functions Windows XP does not have:"; echo "$hits"; status=1
fi

major=$(sed -n 's/^MajorSubsystemVersion\s*//p' <<<"$dump")
minor=$(sed -n 's/^MinorSubsystemVersion\s*//p' <<<"$dump")
if (( major > 5 || (major == 5 && minor > 1) )); then
    echo "subsystem version $major.$minor is newer than XP's 5.1"; status=1
fi
[ $status -eq 0 ] && echo "$exe: imports and subsystem version fit Windows XP"
exit $status
