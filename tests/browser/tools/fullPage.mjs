// A page with a button in every slot of all ten groups.

const TYPES = ['Sequence', 'Multi', 'Timeline', 'Auto'];
const SLOTS = { 0: 32, 9: 8 };

export async function fillPage(operator) {
  await operator.command('CreateNewShow "Full House"');
  await operator.command('AddPage "Full"');
  await operator.command('SetPage "Full"');
  for (let group = 0; group <= 9; group++) {
    for (let slot = 1; slot <= (SLOTS[group] ?? 8); slot++) {
      await operator.command(`assignButton ${group} ${slot} "Button ${group} ${slot}" ButtonType_${TYPES[slot % 4]}`);
    }
  }
}
