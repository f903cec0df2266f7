# Completion of tavix-console for PowerShell: dot-source this file in $PROFILE.
Register-ArgumentCompleter -Native -CommandName tavix-console, tavix-console.exe -ScriptBlock {
  param($word, $line, $cursor)
  $before = $line.CommandElements | Where-Object { $_.Extent.EndOffset -lt $cursor } | Select-Object -Last 1
  $offered = if ("$before" -eq '--page') { 'privacy', 'system', 'registry', 'advanced' }
  else {
    '--machine', '--live', '--page', '--one-click', '--function', '--scope', '--set', '--untick', '--tick', '--clean',
    '--yes', '--now', '--json', '--export', '--mask', '--help', '--version'
  }
  $offered | Where-Object { $_ -like "$word*" } | ForEach-Object {
    [System.Management.Automation.CompletionResult]::new($_)
  }
}
