# How Doxygen reads a header (sed -E): it sees neither through the platform's macro nor through its templates.
s|^ +DECLARE_META_INTERFACE\((.*)\)|    /** The name of the interface, by which its service is published. */ static const android::String16 descriptor; /** The interface behind @p obj: the object itself when it lives in this process, else a new proxy; null for null. */ static android::sp<I\1> asInterface(const android::sp<android::IBinder>\& obj); /** @return @ref descriptor. */ virtual const android::String16\& getInterfaceDescriptor() const;|
s/android::BnInterface<(I[A-Za-z0-9]+)>/\1, public android::BBinder/
s/android::BpInterface<(I[A-Za-z0-9]+)>/\1, public android::BpRefBase/
# What a header is for stands in its first lines.
1 s|^// ?|/** |
1,/^#pragma once/ {
    s|^// ?||
    s|^#pragma once|@file */|
}
# Of private types it writes nothing but a link to them.
/^  private:/,/^};/ {
    /^    template <.*>$/ N
    /(^|\n)    (struct|class) [A-Za-z]+[^;]*\{$/ {
        :type
        N
        /\n    \};$/! b type
        s/[^\n]//g
    }
}
# A mock has the operations of what it mocks, which are documented there.
/^ +MOCK_METHOD\(.*\);$/ s/.*//
/^ +MOCK_METHOD\(/,/\);$/ s/.*//
