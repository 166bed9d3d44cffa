#pragma once

namespace journal
{
/// Starts or ends writing every recorded call to /var/debug/app/platform/journal.log. At 4 MiB the file becomes
/// journal.log.1 and a new one begins.
void stream(bool bOn);
} // namespace journal
